// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>

#include "jx/platform/JXClock.h"

namespace jx::simulation {

/// Time as the device has it: a steady clock, one that begins with each start of the system, and a
/// time of day that may jump. All advance only when the simulation says so.
class VirtualClock final : public JXClock {
 public:
  std::int64_t nowMs() const override { return steadyMs_ + offsetMs_; }
  std::int64_t systemMs() const override { return steadyMs_ - startedMs_; }
  std::uint32_t systemStart() const override { return starts_; }
  std::int64_t steadyMs() const { return steadyMs_; }
  std::chrono::steady_clock::time_point steady() const {
    return std::chrono::steady_clock::time_point(std::chrono::milliseconds(steadyMs_));
  }

  void advanceTo(std::int64_t steadyMs) { steadyMs_ = steadyMs; }
  /// The system is started again.
  void restart() {
    startedMs_ = steadyMs_;
    ++starts_;
  }
  /// Moves the time of day.
  void jump(std::int64_t ms) { offsetMs_ += ms; }
  /// Resets the time of day to 1970, as a device without a battery does when it starts.
  void forget() { offsetMs_ = -steadyMs_; }

 private:
  std::int64_t steadyMs_ = 1'000'000;
  std::int64_t startedMs_ = 0;
  std::uint32_t starts_ = 1;
  std::int64_t offsetMs_ = 1'745'000'000'000;  // April 2025
};

}  // namespace jx::simulation
