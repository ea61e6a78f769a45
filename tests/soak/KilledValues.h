// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "tests/soak/Arguments.h"

namespace jx::soak {

/// Kills processes of one storage folder, one after the other, at random times while they execute
/// and deliver. The next start finds the time of the last call and the usage duration of the last
/// event for which execute returned, or of the next one. Returns a line for each failure.
std::string killedValues(std::uint64_t seed);

/// The process that `killedValues` kills: executes events, some milliseconds of its own clock
/// apart, and records them with the usage duration.
int timedWorker(Arguments& arguments);

}  // namespace jx::soak
