// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string_view>

#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXTransferSetup.h"

namespace jx {

/// Owns the transfer thread, which sends what the outbox holds and makes the storage durable. It
/// sleeps without any periodic wake-up while there is nothing to do. All operations are
/// thread-safe; none but `flush` and `stop` waits for the network or for the thread.
///
/// After a `fork` the child has no transfer thread: there `stop` does nothing and `flush` returns
/// at its deadline. A child that does not `exec` must not use the library.
class JXTransfer {
 public:
  /// How long a process end waits for the thread.
  static constexpr std::chrono::milliseconds kStopLimit{250};

  /// Throws std::exception when there is no memory.
  explicit JXTransfer(JXTransferSetup setup);
  /// Stops within `kStopLimit`.
  ~JXTransfer();
  JXTransfer(const JXTransfer&) = delete;
  JXTransfer& operator=(const JXTransfer&) = delete;

  /// Starts the thread, once; holds may be set before. Throws std::system_error when the system
  /// gives no thread.
  void start();

  /// Puts a request into the outbox, where it is when this returns, and has it sent.
  void enqueue(std::string_view url, std::string_view body);
  /// Something else on the disk was changed: sync and `maintain` run within `syncDelay`.
  void storageChanged();

  /// True holds all requests and aborts those in flight. Either value says that the question of
  /// consent was considered, and ends the hold at the start.
  void setDisabled(bool disabled);
  /// True holds requests that are not in flight yet.
  void setInBackground(bool inBackground);
  /// Holds requests until `userAgentKnown`, at most for `userAgentWait`.
  void holdForUserAgent();
  void userAgentKnown();

  /// True when the queue is empty, waiting for it at most until `deadline` has passed. A back-off
  /// pause is cut to its shortest, unless the receiver asked for it by Retry-After; holds are not
  /// lifted. On the transfer thread itself it does not wait.
  bool flush(std::chrono::milliseconds deadline);
  /// Empties the queue and the dead letters at once and aborts what is in flight.
  void purge();

  JXDeliveryCounters counters() const;

  /// Ends the thread; requests in flight stay in the outbox, and callbacks are not called any more.
  /// False when the thread did not end within `limit` (a callback or the disk keeps it): it is left
  /// behind then, and touches nothing but what keeps it. Further calls give the same answer, and
  /// the thread does not start again.
  bool stop(std::chrono::milliseconds limit);

 private:
  class Engine;
  std::shared_ptr<Engine> engine_;
};

}  // namespace jx
