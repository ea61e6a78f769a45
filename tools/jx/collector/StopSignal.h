// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>

namespace jx {

/// A one-time signal that wakes every thread waiting in poll(). Thread-safe.
class StopSignal {
 public:
  StopSignal();
  ~StopSignal();
  StopSignal(const StopSignal&) = delete;
  StopSignal& operator=(const StopSignal&) = delete;

  /// Raises the signal. Further calls have no effect.
  void raise();
  bool isRaised() const { return raised_.load(); }
  /// Returns when the signal was raised. Valid only after isRaised() returned true.
  std::chrono::steady_clock::time_point raisedAt() const { return raisedAt_; }
  /// Returns a descriptor that becomes permanently readable when the signal is raised.
  int fd() const { return fd_; }

 private:
  int fd_;
  std::chrono::steady_clock::time_point raisedAt_;
  std::atomic<bool> raised_{false};
};

}  // namespace jx
