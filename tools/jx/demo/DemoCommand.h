// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace jx {

/// Starts a collector in this process, plays an evening of television through the library over
/// HTTPS, and tells what arrived. `once`: returns then; else keeps the collector's page open until
/// SIGINT or SIGTERM. Gives the exit status: 0 when every event arrived, each once. Once in a
/// process.
int runDemo(bool once);

/// Adds the command; when the command line names it, its exit status is set during parsing.
void addDemoCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
