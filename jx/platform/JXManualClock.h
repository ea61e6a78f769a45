// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// A clock that changes only when it is set or advanced: for scripts and tests that simulate days
/// within milliseconds. Thread-safe.
class JX_API JXManualClock final : public JXClock {
 public:
  /// Starts at `startMs` milliseconds since the Unix epoch.
  explicit JXManualClock(std::int64_t startMs) : nowMs_(startMs), systemMs_(startMs) {}

  std::int64_t nowMs() const override { return nowMs_.load(); }
  /// Starts at `startMs`, and changes only when the clock is advanced.
  std::int64_t systemMs() const override { return systemMs_.load(); }
  std::uint32_t systemStart() const override { return 1; }
  /// Advances the clock by `ms`, as time does. A negative value sets only the time of day back.
  void advance(std::int64_t ms) {
    nowMs_.fetch_add(ms);
    if (ms > 0) systemMs_.fetch_add(ms);
  }
  /// Sets the time of day to `ms` milliseconds since the Unix epoch.
  void set(std::int64_t ms) { nowMs_.store(ms); }

 private:
  std::atomic<std::int64_t> nowMs_;
  std::atomic<std::int64_t> systemMs_;
};

}  // namespace jx
