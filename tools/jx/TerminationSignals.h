// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// Holds back SIGINT and SIGTERM from the moment it is made, in this thread and in those started
/// later, and lets one thread wait for them. Made before any other thread starts.
class TerminationSignals {
 public:
  TerminationSignals();
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// Returns when one of the two has arrived.
  void wait() const;
  /// Readable once one of the two has arrived.
  int fd() const { return fd_; }

 private:
  int fd_;
};

}  // namespace jx
