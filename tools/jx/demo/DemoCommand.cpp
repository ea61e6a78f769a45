// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/DemoCommand.h"

#include <poll.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "tools/jx/ExitStatus.h"
#include "tools/jx/TemporaryState.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/collector/CollectorServer.h"
#include "tools/jx/demo/ArrivalTable.h"
#include "tools/jx/demo/DemoPlay.h"
#include "tools/jx/demo/DemoScript.h"

namespace jx {
namespace {

int fail(const Error& failure) {
  std::fflush(stdout);
  std::fprintf(stderr, "jx demo: %s\n", failure.text.c_str());
  return kExitFailure;
}

void printLine(const std::string& text) {
  std::printf("%s\n", text.c_str());
  std::fflush(stdout);
}

Result<std::unique_ptr<CollectorServer>> startCollector(const std::filesystem::path& folder) {
  CollectorSettings settings;
  settings.stateFolder = folder;
  settings.eventsPort = 0;
  settings.webPort = 0;
  return CollectorServer::start(settings);
}

// Returns the number of sent events that arrived exactly once.
std::size_t countArrivedOnce(const DemoPlayed& played, const std::vector<Arrival>& arrivals) {
  std::size_t count = 0;
  for (const std::string& id : played.eventIds) {
    const auto isIt = [&id](const Arrival& arrival) { return arrival.eventId == id; };
    const auto found = std::find_if(arrivals.begin(), arrivals.end(), isIt);
    count += found != arrivals.end() && found->repeats == 0 ? 1 : 0;
  }
  return count;
}

// Returns true when every event arrived exactly once.
bool printResult(const DemoPlayed& played, const std::vector<Arrival>& arrivals,
                 const TerminalStyle& style) {
  const std::size_t arrived = countArrivedOnce(played, arrivals);
  const bool isComplete = arrived == played.eventIds.size() && arrivals.size() == arrived;
  const std::string text = std::to_string(played.eventIds.size()) + " events sent, " +
                           std::to_string(arrived) + " arrived";
  printLine("\n" + (isComplete ? style.success(text) : style.failure(text)));
  if (played.ignored != 0) {
    printLine(style.dim(std::to_string(played.ignored) + " more not sent: consent was withdrawn"));
  }
  return isComplete;
}

}  // namespace

int runDemo(bool once) {
  const TerminationSignals signals;
  const auto isCancelled = [&signals] {
    pollfd stop{signals.fd(), POLLIN, 0};
    return ::poll(&stop, 1, 0) == 1;
  };
  // Created before the library starts, so that it is removed after the library's thread has ended.
  static std::optional<TemporaryState> folder;
  Result<TemporaryState> created = TemporaryState::create();
  if (!created) return fail(created.error());
  folder.emplace(std::move(*created));
  const Result<std::unique_ptr<CollectorServer>> collector =
      startCollector(folder->path() / "collector");
  if (!collector) return fail(collector.error());

  const TerminalStyle style = TerminalStyle::ofStandardOutput();
  const DemoTarget target{"https://127.0.0.1:" + std::to_string((*collector)->eventsPort()),
                          (*collector)->authorityFile().string(), folder->path() / "television"};
  printLine(style.bold("Sample TV session, sent by the library to " + target.address) + "\n");
  const Result<DemoPlayed> played = playDemo(demoScript(), target, isCancelled);
  if (!played) return fail(played.error());
  const Result<std::vector<Arrival>> arrivals =
      fetchArrivals((*collector)->webPort(), played->permanentKeys);
  if (!arrivals) return fail(arrivals.error());
  std::fputs(arrivalTable(*arrivals, style).c_str(), stdout);
  const bool isComplete = printResult(*played, *arrivals, style);
  if (!once) {
    printLine("\nWeb UI: " +
              style.bold("http://localhost:" + std::to_string((*collector)->webPort()) + "/") +
              " (press Ctrl-C to stop)");
    signals.wait();
  }
  return isComplete ? kExitOk : kExitFailure;
}

void addDemoCommand(CLI::App& app, int& exitStatus) {
  const auto once = std::make_shared<bool>(false);
  CLI::App* const command = app.add_subcommand(
      "demo", "Send a sample TV session through the library and show the events received");
  command->add_flag("--once", *once,
                    "Exit after printing the results, with status 0 only if every event arrived "
                    "[keep the web UI open until Ctrl-C]");
  command->callback([once, &exitStatus] { exitStatus = runDemo(*once); });
}

}  // namespace jx
