// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace jx {

/// Adds `jx gateway`, which receives the events of a fleet and stores them in a stream of a message
/// broker. Sets `exitStatus` when the command ends.
void addGatewayCommand(CLI::App& app, int& exitStatus);

}  // namespace jx
