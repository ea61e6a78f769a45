// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>

#include "tools/jx/collector/CollectorServer.h"

namespace jx {

/// What the command line of `jx collector` says.
struct CollectorOptions {
  /// Its state folder is empty for the default one.
  CollectorSettings settings;
  /// Written when the collector is ready; empty for none.
  std::filesystem::path portsFile;
};

/// Runs the collector until SIGINT or SIGTERM. Gives the exit status.
int runCollector(const CollectorOptions& options);

/// Adds the command; when the command line names it, its exit status is set during parsing.
void addCollectorCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
