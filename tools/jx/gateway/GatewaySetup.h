// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdint>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/NatsClient.h"

namespace jx {

struct StreamSettings {
  int replicas = 3;
  std::chrono::seconds duplicateWindow{600};  ///< in which the broker drops repeats by event ID
  std::int64_t maxBytes = 0;                  ///< 0: no limit but the disk
  std::chrono::seconds maxAge{0};             ///< 0: events are kept for ever
  std::chrono::milliseconds wait{30'000};     ///< for a cluster that is starting
};

/// Creates the streams of the gateway, or changes existing ones to these settings. A full stream
/// refuses events instead of dropping old ones, so that televisions keep them.
Done setUpStreams(const NatsServers& servers, const StreamSettings& settings);

/// Adds `setup` to the command `gateway`.
void addSetupCommand(CLI::App& gateway, int& exitStatus);

}  // namespace jx
