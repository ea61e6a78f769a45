// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "tests/soak/KillResult.h"

namespace jx::soak {

struct KillOptions {
  std::uint64_t seed = 0;  ///< determines the processes, what is done to them, and the responses
  std::uint64_t maxJumpDays = 0;  ///< of the time of day, in either direction; it also becomes 1970
};

/// Kills the processes of one storage folder at random times while they execute and send, and
/// delivers what is left in a last process.
KillResult runKills(const KillOptions& options);

}  // namespace jx::soak
