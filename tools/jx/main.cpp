// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "tools/jx/ExitStatus.h"
#include "tools/jx/collector/CollectorCommand.h"
#include "tools/jx/demo/DemoCommand.h"
#include "tools/jx/gateway/GatewayCommand.h"
#include "tools/jx/queue/QueueCommand.h"
#include "tools/jx/replay/ReplayCommand.h"

namespace {

int run(int argc, char** argv) {
  CLI::App app("Command-line tools of JXServerSide, the event-collection SDK for TV applications.",
               "jx");
  app.set_version_flag("--version", "jx " JX_VERSION " (JXServerSide, Apache-2.0)",
                       "Print the version and exit");
  app.require_subcommand(0, 1);

  int exitStatus = jx::kExitOk;
  jx::addReplayCommand(app, exitStatus);
  jx::addCollectorCommand(app, exitStatus);
  jx::addGatewayCommand(app, exitStatus);
  jx::addQueueCommand(app, exitStatus);
  jx::addDemoCommand(app, exitStatus);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {
    return app.exit(request);  // --help and --version
  } catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "jx: %s (see jx --help)\n", error.what());
    return jx::kExitUsage;
  }
  if (app.get_subcommands().empty()) {
    std::fputs(app.help().c_str(), stderr);
    return jx::kExitUsage;
  }
  return exitStatus;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "jx: %s\n", error.what());
    return jx::kExitFailure;
  }
}
