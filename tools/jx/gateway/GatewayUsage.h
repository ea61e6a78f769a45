// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>

namespace jx {

/// What the connections of the process use now.
struct GatewayUsage {
  std::atomic<std::size_t> connections{0};
  std::atomic<std::size_t> bytesInFlight{0};
  std::atomic<std::size_t> requestsInFlight{0};
  std::atomic<std::size_t> refusedConnections{0};  ///< since the start, above the limit
};

}  // namespace jx
