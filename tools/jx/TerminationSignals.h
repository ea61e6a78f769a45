// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// Blocks SIGINT and SIGTERM in the calling thread and in threads started later, and lets one
/// thread wait for them. Create it before any other thread starts.
class TerminationSignals {
 public:
  TerminationSignals();
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// Waits for one of the signals and consumes it.
  void wait() const;
  /// Returns a descriptor that is readable while a signal is pending.
  int fd() const { return fd_; }

 private:
  int fd_;
};

}  // namespace jx
