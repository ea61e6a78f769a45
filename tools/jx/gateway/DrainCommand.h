// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace jx {

/// Adds `drain` to the command `gateway`.
void addDrainCommand(CLI::App& gateway, int& exitStatus);

}  // namespace jx
