// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <optional>
#include <string>

#include "tools/jx/replay/ReplaySession.h"

namespace jx {

/// What the command line of `jx replay` says.
struct ReplayOptions {
  std::string script = "-";  ///< path, or "-" for standard input
  ReplaySettings settings;   ///< its state folder is empty for a temporary one
  bool prints = false;
  bool verifies = false;
  bool strict = false;
  std::optional<double> rate;  ///< events a second
  double waitSeconds = 10;

  bool sends() const { return !prints && !settings.collectionAddress.empty(); }
};

/// Adds the options to the command; they are filled while the command line is parsed.
void addReplayOptions(CLI::App& command, ReplayOptions& options);

/// What is wrong with options that are each right; empty when nothing is.
std::string faultOfTogether(const ReplayOptions& options);

}  // namespace jx
