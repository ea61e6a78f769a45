// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace jx::bench {

/// Returns how often this thread has called operator new since it started.
std::uint64_t allocationsOfThisThread();
/// Returns how often this thread has called malloc, calloc and realloc, including calls by operator
/// new.
std::uint64_t mallocsOfThisThread();

}  // namespace jx::bench
