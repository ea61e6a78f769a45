// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>

namespace jx {

/// Returns true if data created at `createdMs` is older than `maxAge` at `nowMs`.
inline bool isExpired(std::int64_t createdMs, std::int64_t nowMs,
                      std::chrono::milliseconds maxAge) {
  return createdMs < nowMs && nowMs - createdMs > maxAge.count();
}

}  // namespace jx
