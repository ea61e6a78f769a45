// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>

#include "tools/jx/collector/CollectorServer.h"

namespace jx {

/// The command-line options of `jx collector`.
struct CollectorOptions {
  /// An empty state folder selects the default one.
  CollectorSettings settings;
  /// File to write when the collector is ready; empty for none.
  std::filesystem::path portsFile;
};

/// Runs the collector until SIGINT or SIGTERM. Returns the exit status.
int runCollector(const CollectorOptions& options);

/// Adds the `collector` command. When the command line selects it, parsing runs it and sets
/// `exitStatus`.
void addCollectorCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
