// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace jx::bench {

/// How often this thread has called operator new since it started.
std::uint64_t allocationsOfThisThread();
/// The same for the blocks that it asked of malloc, calloc and realloc; operator new's among them.
std::uint64_t mallocsOfThisThread();

}  // namespace jx::bench
