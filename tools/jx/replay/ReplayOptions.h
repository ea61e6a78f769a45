// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <optional>
#include <string>

#include "tools/jx/replay/ReplaySession.h"

namespace jx {

/// Options of `jx replay`.
struct ReplayOptions {
  std::string script = "-";  ///< path, or "-" for standard input
  ReplaySettings settings;   ///< an empty state folder selects a temporary one
  bool prints = false;
  bool verifies = false;
  bool strict = false;
  std::optional<double> rate;  ///< events per second
  double waitSeconds = 10;

  bool sends() const { return !prints && !settings.collectionAddress.empty(); }
};

/// Adds the options to the command. Parsing the command line fills `options`.
void addReplayOptions(CLI::App& command, ReplayOptions& options);

/// Returns the error of a combination of valid options; empty for a valid combination.
std::string combinationError(const ReplayOptions& options);

}  // namespace jx
