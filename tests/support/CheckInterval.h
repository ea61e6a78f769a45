// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

#include "jx/core/storage/JXThrottledCheck.h"

namespace jx::test {

/// Sets the time for which throttled checks are skipped while it exists. With `kNone`, the storage
/// notices changes of its files immediately.
class CheckInterval {
 public:
  static constexpr std::chrono::milliseconds kNone{0};
  static constexpr std::chrono::milliseconds kEndless = std::chrono::hours(1'000);

  explicit CheckInterval(std::chrono::milliseconds interval) {
    JXThrottledCheck::interval = interval;
  }
  ~CheckInterval() { JXThrottledCheck::interval = before_; }
  CheckInterval(const CheckInterval&) = delete;
  CheckInterval& operator=(const CheckInterval&) = delete;

 private:
  const std::chrono::milliseconds before_ = JXThrottledCheck::interval;
};

}  // namespace jx::test
