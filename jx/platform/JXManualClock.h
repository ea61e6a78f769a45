// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// A time of day that stands still until its owner moves it: for scripts and tests that tell
/// days of an installation's life in milliseconds. Thread-safe.
class JX_API JXManualClock final : public JXClock {
 public:
  /// Stands at `startMs` milliseconds since the Unix epoch.
  explicit JXManualClock(std::int64_t startMs) : nowMs_(startMs) {}

  std::int64_t nowMs() const override { return nowMs_.load(); }
  /// Moves the clock by `ms`; a negative value sets it back.
  void advance(std::int64_t ms) { nowMs_.fetch_add(ms); }
  /// Sets the clock to `ms` milliseconds since the Unix epoch.
  void set(std::int64_t ms) { nowMs_.store(ms); }

 private:
  std::atomic<std::int64_t> nowMs_;
};

}  // namespace jx
