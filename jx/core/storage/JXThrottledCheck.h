// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <limits>

#if defined(__linux__)
#include <ctime>
#endif

namespace jx {

/// A check that takes a system call, made before frequent operations: after it succeeded, it is
/// skipped for `interval`. The clock is read without a system call and may lag by 10 ms, so that a
/// change is noticed by each operation that begins 20 ms after it. Thread-safe.
class JXThrottledCheck {
 public:
  /// Changed by tests only.
  inline static std::atomic<std::chrono::milliseconds> interval{std::chrono::milliseconds(10)};

  /// Returns what `check` returns, or true if it was skipped.
  template <typename Check>
  bool succeeds(const Check& check) {
    const std::int64_t now = milliseconds();
    const std::chrono::milliseconds skipped = interval.load(std::memory_order_relaxed);
    if (now - succeededAt_.load(std::memory_order_relaxed) < skipped.count()) return true;
    const bool isTrue = check();
    succeededAt_.store(isTrue ? now : kNever, std::memory_order_relaxed);
    return isTrue;
  }
  /// The next check is not skipped.
  void forget() { succeededAt_.store(kNever, std::memory_order_relaxed); }

 private:
  static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::min() / 2;

  static std::int64_t milliseconds() {
#if defined(__linux__)
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1'000 + now.tv_nsec / 1'000'000;
#else
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
#endif
  }

  std::atomic<std::int64_t> succeededAt_{kNever};
};

}  // namespace jx
