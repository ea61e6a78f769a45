// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>

namespace jx {

/// Told once, seen by every thread that waits in poll(). Thread-safe.
class StopSignal {
 public:
  StopSignal();
  ~StopSignal();
  StopSignal(const StopSignal&) = delete;
  StopSignal& operator=(const StopSignal&) = delete;

  void raise();
  bool isRaised() const { return raised_.load(); }
  /// When it was raised; meaningful only then.
  std::chrono::steady_clock::time_point raisedAt() const { return raisedAt_; }
  /// Becomes readable, for good, when the signal is raised.
  int fd() const { return fd_; }

 private:
  int fd_;
  std::chrono::steady_clock::time_point raisedAt_;
  std::atomic<bool> raised_{false};
};

}  // namespace jx
