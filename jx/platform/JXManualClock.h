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
  explicit JXManualClock(std::int64_t startMs) : nowMs_(startMs) {}

  std::int64_t nowMs() const override { return nowMs_.load(); }
  /// Advances the clock by `ms`; a negative value moves it back.
  void advance(std::int64_t ms) { nowMs_.fetch_add(ms); }
  /// Sets the clock to `ms` milliseconds since the Unix epoch.
  void set(std::int64_t ms) { nowMs_.store(ms); }

 private:
  std::atomic<std::int64_t> nowMs_;
};

}  // namespace jx
