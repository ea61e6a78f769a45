// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplayCommand.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "jx/core/storage/JXFolder.h"
#include "tools/jx/Console.h"
#include "tools/jx/ExitStatus.h"
#include "tools/jx/TemporaryState.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/replay/Replay.h"

namespace jx {
namespace {

int failUsage(const std::string& message) {
  std::fprintf(stderr, "jx replay: %s\n", message.c_str());
  return kExitUsage;
}

Error failureOf(const std::string& action, const std::string& path, int error) {
  return Error{"cannot " + action + " " + path + ": " +
               std::error_code(error, std::generic_category()).message()};
}

Result<int> openScript(const std::string& path) {
  if (path == "-") return STDIN_FILENO;
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return failureOf("read", path, errno);
  struct stat status {};
  if (::fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
    ::close(file);
    return failureOf("read", path, EISDIR);
  }
  return file;
}

// Without a usable folder the library would keep events in memory, and a later run would not find
// them. Permissions alone are not sufficient, so a test file is created.
Done ensureWritable(const std::filesystem::path& folder) {
  if (const int error = makeFolder(folder.string()); error != 0) {
    return failureOf("create the folder", folder.string(), error);
  }
  std::string probe = (folder / ".probe-XXXXXX").string();
  const int file = ::mkostemp(probe.data(), O_CLOEXEC);
  if (file < 0) return failureOf("write into", folder.string(), errno);
  ::close(file);
  ::unlink(probe.c_str());
  return done();
}

// Returns the given folder or a temporary one. The temporary folder is created before the library's
// thread and destroyed after it: a running thread would create its files again.
Result<std::filesystem::path> chooseState(const ReplayOptions& options,
                                          std::optional<TemporaryState>& temporary) {
  if (!options.settings.stateFolder.empty()) {
    const Done usable = ensureWritable(options.settings.stateFolder);
    if (!usable) return usable.error();
    return options.settings.stateFolder;
  }
  Result<TemporaryState> created = TemporaryState::create();
  if (!created) return created.error();
  temporary.emplace(std::move(*created));
  return temporary->path();
}

}  // namespace

int runReplay(const ReplayOptions& options) {
  const std::string error = combinationError(options);
  if (!error.empty()) return failUsage(error);
  const TerminationSignals signals;
  const Result<int> script = openScript(options.script);
  if (!script) return failUsage(script.error().text);
  static std::optional<TemporaryState> temporary;
  const Result<std::filesystem::path> state = chooseState(options, temporary);
  if (!state) return failUsage(state.error().text);

  ReplayOptions complete = options;
  complete.settings.stateFolder = *state;
  const auto console = std::make_shared<Console>(!options.prints);
  Replay replay(complete, *script, signals, console);
  const int status = replay.play();
  if (temporary && options.sends() && status == kExitUndelivered) {
    temporary->keep();
    console->line("undelivered events are kept; send them later with --state " +
                  temporary->path().string());
  }
  return status;
}

void addReplayCommand(CLI::App& app, int& exitStatus) {
  const auto options = std::make_shared<ReplayOptions>();
  CLI::App* const command =
      app.add_subcommand("replay", "Run a session script through the library");
  addReplayOptions(*command, *options);
  command->callback([options, &exitStatus] { exitStatus = runReplay(*options); });
}

}  // namespace jx
