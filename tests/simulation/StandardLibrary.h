// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/simulation/Random.h"

namespace jx::simulation {

// This program replaces two functions of the shared standard library, because a life must be the
// same in each run.

/// Makes std::random_device return the numbers of this sequence, which must outlive its use. The
/// library draws names of files and tokens with it.
void drawFrom(Random* random);

/// Runs the threads that were created since the last call, one after the other, to their end.
void runThreads();

}  // namespace jx::simulation
