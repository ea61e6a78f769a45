// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/core/transfer/JXTransferMailbox.h"
#include "jx/core/transfer/JXTransferPlan.h"
#include "jx/core/transfer/JXTransferSetup.h"

namespace jx {

/// What the transfer thread does between two sleeps: takes orders, does what the plan says with
/// outbox and transport, and settles what came back. It belongs to one thread, and has none of its
/// own, so that tests can turn it step by step. `tries` and `failures` may be read anywhere.
class JXTransferLoop {
 public:
  /// `setup.transport` and `setup.outbox` are there, `setup.steadyNow` and `setup.draw` too.
  explicit JXTransferLoop(JXTransferSetup setup);

  /// Takes orders; `added` tells that requests were added.
  void take(const JXTransferCommands& orders, bool added);
  /// Does what is due now and tells how to wait.
  JXTransferWait act();
  /// Waits as `rest` says (not at all when `mayWait` is false) and settles what came back.
  void waitAndSettle(const JXTransferWait& rest, bool mayWait);
  /// Gives back what is in flight, as before the process ends, and makes the storage durable.
  void end();
  /// After a failure inside, such as memory that ran out: gives back what is in flight and pauses.
  void recover(std::string_view what) noexcept;

  std::uint64_t attempts() const { return attempts_.load(); }
  std::uint64_t failures() const { return failures_.load(); }

 private:
  bool startOne(bool probes);
  void abortInFlight();
  void sync();
  void settle(JXHttpResult& result);
  void reportRejected(const JXHttpResult& result);
  bool reportDropped();
  void logFailure(const JXHttpResult& result, JXTransferPlan::Time now);
  void tell(const JXDelivery& delivery);

  JXTransferSetup setup_;
  JXTransferPlan plan_;
  JXTransferCommands applied_;
  std::string lastFailure_;  // the cause that was logged last, empty after a success
  std::atomic<std::uint64_t> attempts_{0};
  std::atomic<std::uint64_t> failures_{0};
};

/// The "event_id" of a request's body, absent when it holds none.
JXString eventIdOf(std::string_view body);

}  // namespace jx
