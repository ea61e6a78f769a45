// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

namespace jx {

/// Options of `jx queue`.
struct QueueOptions {
  std::string verb;  ///< "status", "list", "dead" or "purge"
  std::filesystem::path stateFolder;
  bool json = false;  ///< print the whole requests; for "list" and "dead"
  bool all = false;  ///< purge everything that is stored, not only the queue
};

/// Prints the content of the outbox of a state folder without changing it, or purges it. Other
/// processes may have the folder open. Returns the exit status.
int runQueue(const QueueOptions& options);

/// Adds the command to `app`. Parsing a command line with this command runs it and sets
/// `exitStatus`.
void addQueueCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
