// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>

namespace jx {

/// 2025-01-01T00:00:00Z. A TV without a battery-backed clock starts in 1970 and gets the time
/// later: the age of data dated before this is unknown.
constexpr std::int64_t kJXFirstPlausibleMs = 1'735'689'600'000;

/// Returns true if data created at `createdMs` is older than `maxAge` at `nowMs`. Data dated before
/// 2025, or in the future because the clock was set back, has no age and does not expire.
inline bool isExpired(std::int64_t createdMs, std::int64_t nowMs,
                      std::chrono::milliseconds maxAge) {
  return createdMs >= kJXFirstPlausibleMs && createdMs < nowMs &&
         nowMs - createdMs > maxAge.count();
}

}  // namespace jx
