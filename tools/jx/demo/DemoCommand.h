// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace jx {

/// Starts a collector in this process, sends a sample TV session through the library over HTTPS,
/// and prints the events received. With `once`, returns immediately after that; otherwise keeps the
/// web UI open until SIGINT or SIGTERM. Returns the exit status: 0 when every event arrived exactly
/// once. Call it once per process.
int runDemo(bool once);

/// Adds the command to `app`. Parsing a command line with this command runs it and sets
/// `exitStatus`.
void addDemoCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
