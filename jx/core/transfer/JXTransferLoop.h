// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/core/transfer/JXTransferMailbox.h"
#include "jx/core/transfer/JXTransferPlan.h"
#include "jx/core/transfer/JXTransferSetup.h"

namespace jx {

/// The work of the transfer thread between two sleeps: applies commands, executes the plan with
/// outbox and transport, and processes the results. It belongs to one thread and creates none, so
/// that tests can run it step by step. `attempts` and `failures` may be read on any thread.
class JXTransferLoop {
 public:
  /// `setup.transport`, `setup.outbox`, `setup.steadyNow` and `setup.draw` must be set.
  explicit JXTransferLoop(JXTransferSetup setup);

  /// Applies commands; `added` is true when requests were added.
  void apply(const JXTransferCommands& commands, bool added);
  /// Performs the actions that are due now and returns how to wait.
  JXTransferWait act();
  /// Waits as specified by `wait` (not at all when `mayWait` is false) and returns the results.
  std::vector<JXHttpResult> poll(const JXTransferWait& wait, bool mayWait);
  /// Processes the results of `poll`.
  void complete(std::vector<JXHttpResult> results);
  /// Requeues the requests in flight and makes the storage durable, before the process exits.
  void end();
  /// Recovers from an internal failure such as out of memory: requeues the requests in flight and
  /// starts a backoff. `error` is the cause, for the log.
  void recover(std::string_view error) noexcept;

  std::uint64_t attempts() const { return attempts_.load(); }
  std::uint64_t failures() const { return failures_.load(); }

 private:
  bool startOne(bool probes);
  void abortInFlight();
  void sync();
  void completeOne(JXHttpResult& result);
  void reportRejected(const JXHttpResult& result);
  bool reportDropped();
  void logFailure(const JXHttpResult& result, JXTransferPlan::Time now);
  void report(const JXDelivery& delivery);

  JXTransferSetup setup_;
  JXTransferPlan plan_;
  JXTransferCommands applied_;
  std::string lastFailure_;  // the cause logged last; empty after a success
  std::atomic<std::uint64_t> attempts_{0};
  std::atomic<std::uint64_t> failures_{0};
};

}  // namespace jx
