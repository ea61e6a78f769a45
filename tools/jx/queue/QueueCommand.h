// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

namespace jx {

/// What the command line of `jx queue` says.
struct QueueOptions {
  std::string verb;  ///< "status", "list", "dead" or "purge"
  std::filesystem::path stateFolder;
};

/// Tells what the outbox of a state folder holds, without changing it, or empties it; other
/// processes may have it open. Gives the exit status.
int runQueue(const QueueOptions& options);

/// Adds the command; when the command line names it, its exit status is set during parsing.
void addQueueCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
