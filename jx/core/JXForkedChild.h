// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <mutex>

#include "jx/platform/JXApi.h"

namespace jx {

/// For the library: detects that this process is a child that was forked after the SDK had started
/// and has not called `exec`. The child has none of the SDK's threads, and its locks may be locked
/// forever, so every operation of the SDK returns at once there, with null, 0 or an empty value.
class JX_API JXForkedChild {
 public:
  /// Begins the detection, and prevents that the module of the library is unloaded. Children that
  /// are forked before the first call may use the SDK.
  static void watch();

  /// Calls `watch`, and from then on forks between two operations that lock `mutex`, so that a
  /// child can read the data that it guards. Waits for an operation at most 100 ms. For one mutex
  /// that is never destroyed.
  static void keepConsistent(std::recursive_mutex& mutex);

  /// Returns whether this process is such a child.
  static bool isCurrent() noexcept { return isCurrent_.load(std::memory_order_relaxed); }

  /// Returns `isCurrent()`. Logs the first ignored call of the process: `operation` is its name.
  static bool ignores(const char* operation) noexcept { return isCurrent() && logOnce(operation); }

 private:
  static void beforeFork() noexcept;
  static void afterForkInParent() noexcept;
  static void afterForkInChild() noexcept;
  static bool logOnce(const char* operation) noexcept;

  static std::atomic<bool> isCurrent_;
};

}  // namespace jx
