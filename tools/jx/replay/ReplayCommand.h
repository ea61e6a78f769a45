// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "tools/jx/replay/ReplayOptions.h"

namespace jx {

/// Plays a script through the library. Gives the exit status. Once in a process.
int runReplay(const ReplayOptions& options);

/// Adds the command; when the command line names it, its exit status is set during parsing.
void addReplayCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
