// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/DrainCommand.h"

#include <poll.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "tools/jx/ExitStatus.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/gateway/EventDrain.h"

namespace jx {
namespace {

struct DrainOptions {
  DrainSettings settings;
  std::int64_t rotateSeconds = DrainLimits().fileAge.count();
  std::int64_t deduplicateHours = DrainLimits().repeats.count();
};

int fail(const std::string& text) {
  std::fprintf(stderr, "jx gateway drain: %s\n", text.c_str());
  return kExitFailure;
}

int run(const DrainOptions& options) {
  const TerminationSignals termination;
  // A file above the limit of the process is an error, as on a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  DrainSettings settings = options.settings;
  settings.limits.fileAge = std::chrono::seconds(options.rotateSeconds);
  settings.limits.repeats = std::chrono::hours(options.deduplicateHours);
  JsonLog log(stderr, JsonLog::Level::Info);
  const auto drain =
      EventDrain::open(settings, log, [&termination](std::chrono::milliseconds time) {
        pollfd signal{termination.fd(), POLLIN, 0};
        return ::poll(&signal, 1, static_cast<int>(time.count())) > 0;
      });
  if (!drain) return fail(drain.error().text);
  const Done finished = (*drain)->run();
  return finished ? kExitOk : fail(finished.error().text);
}

void addOptions(CLI::App& command, DrainOptions& options) {
  DrainSettings& settings = options.settings;
  addNatsOptions(command, settings.servers);
  command.get_option("--nats")->required();
  command.add_option("--out", settings.folder, "Folder of the files; one folder for each stream")
      ->required();
  command.add_option("--stream", settings.stream, "Set the stream")
      ->check(CLI::IsMember({kEventsStream, kInvalidStream}))
      ->capture_default_str();
  command
      .add_option("--consumer", settings.consumer,
                  "Set the name of the consumer; each drain of a stream needs its own")
      ->capture_default_str();
  command
      .add_option("--rotate-bytes", settings.limits.fileBytes,
                  "Finish a file that has this many bytes")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{1} << 50))
      ->capture_default_str();
  command
      .add_option("--rotate-seconds", options.rotateSeconds,
                  "Finish a file that is this many seconds old")
      ->check(CLI::Range(1, 31'536'000))
      ->capture_default_str();
  command
      .add_option("--deduplicate-hours", options.deduplicateHours,
                  "Drop events whose event_id was stored in the stream this many hours before")
      ->check(CLI::Range(1, 87'600))
      ->capture_default_str();
  command.add_flag("--once", settings.stopsAtEnd, "Exit at the end of the stream");
}

}  // namespace

void addDrainCommand(CLI::App& gateway, int& exitStatus) {
  const auto options = std::make_shared<DrainOptions>();
  CLI::App* const command =
      gateway.add_subcommand("drain", "Write the events of a stream to NDJSON files exactly once");
  addOptions(*command, *options);
  command->callback([options, &exitStatus] { exitStatus = run(*options); });
}

}  // namespace jx
