// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "tools/jx/replay/ReplayOptions.h"

namespace jx {

/// Runs a script through the library and returns the exit status. Call it once per process.
int runReplay(const ReplayOptions& options);

/// Adds the command to `app`. Parsing a command line with this command runs it and sets
/// `exitStatus`.
void addReplayCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
