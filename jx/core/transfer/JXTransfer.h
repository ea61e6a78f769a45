// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>

#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/core/transfer/JXTransferMailbox.h"

namespace jx {

/// Owns the transfer thread, which sends the queued requests and makes the storage durable. The
/// thread sleeps without periodic wake-ups while it has no work. All operations are thread-safe;
/// only `flush` and `stop` wait for the network or the thread.
///
/// The thread co-owns this object, so that it stays valid for a thread that was abandoned by
/// `stop`. A started transfer therefore ends only with `stop`, not with its last owner.
///
/// After a `fork`, the child has no transfer thread: `stop` does nothing and `flush` returns at its
/// deadline. A child that does not call `exec` must not use the library.
class JXTransfer : public std::enable_shared_from_this<JXTransfer> {
 public:
  /// Longest time that a process exit waits for the thread.
  static constexpr std::chrono::milliseconds kStopLimit{250};

  /// Does not start the thread; create the object with std::make_shared. Throws a std::exception
  /// when out of memory.
  explicit JXTransfer(JXTransferSetup setup);
  JXTransfer(const JXTransfer&) = delete;
  JXTransfer& operator=(const JXTransfer&) = delete;

  /// Starts the thread; a second call has no effect. Delivery may be paused before. Throws
  /// std::system_error when the system cannot create a thread, and std::bad_alloc; each added
  /// request then tries again.
  void start();

  /// Adds a request to the outbox before it returns, and wakes the thread to send it.
  void enqueue(std::string_view url, std::string_view body, const JXRequestOrigin& origin,
               bool awaitsDecision);
  /// See JXOutbox::dropOutOfMemory.
  void dropOutOfMemory(std::string_view body);
  void enqueue(std::string_view url, std::string_view body) { enqueue(url, body, {}, false); }
  /// See JXOutbox::mostStops.
  std::uint16_t mostStops(std::uint32_t source) const { return setup().outbox->mostStops(source); }
  /// Reports that other stored data changed: a sync and `maintain` run within `syncDelay`.
  void storageChanged();

  /// Sets which requests may be sent; `isConsentMissing` is reported by `counters`.
  void setFilter(std::shared_ptr<const JXSendFilter> filter, bool isConsentMissing);
  /// Same, and nothing of a request that was started before is sent after it returns; the requests
  /// in flight are aborted and stay queued. Does not wait for network or disk.
  void stopSending(std::shared_ptr<const JXSendFilter> filter, bool isConsentMissing);
  /// True pauses requests that are not in flight yet.
  void setInBackground(bool inBackground);
  /// Pauses requests until `userAgentKnown` is called, for at most `userAgentWait`.
  void pauseForUserAgent();
  /// Ends the pause of `pauseForUserAgent`.
  void userAgentKnown();

  /// Waits until the queue is empty or `deadline` has passed; returns whether it is empty. Shortens
  /// a backoff to `initialBackoff` unless the server requested it by Retry-After; does not resume
  /// paused delivery. Does not wait when called on the transfer thread.
  bool flush(std::chrono::milliseconds deadline);
  /// Deletes all queued requests and dead letters before it returns, and aborts requests in flight.
  void purge();
  /// Drops the requests that were queued before an erase, and aborts those in flight.
  void applyErasures();

  JXDeliveryCounters counters() const;

  /// Stops the thread. Requests in flight stay in the outbox; callbacks are not called afterwards.
  /// Returns false when the thread did not end within `limit` because a callback or the disk blocks
  /// it; the thread is then abandoned and only finishes the blocking call. Further calls return the
  /// same result, and the thread cannot be started again.
  bool stop(std::chrono::milliseconds limit);

 private:
  void startAgain() noexcept;
  void run() noexcept;
  bool runOnce() noexcept;
  bool recover(const char* error) noexcept;
  void endLoop() noexcept;
  bool isAbandoned() noexcept;
  bool isOnThread() const { return threadId_.load() == std::this_thread::get_id(); }
  bool queueIsEmpty() const { return setup().outbox->counters().queued == 0; }
  void abortPurged();
  void resumeTransport(const JXTransferCommands& applied);
  void notifyFlushers();
  const JXTransferSetup& setup() const { return loop_.setup(); }

  JXTransferLoop loop_;
  JXTransferMailbox mailbox_;
  std::thread thread_;
  std::atomic<std::thread::id> threadId_{};
  std::atomic<bool> mustStart_{false};  ///< the thread could not be created
  std::uint64_t endedSuspensions_ = 0;  ///< for the transfer thread only
  bool hasFailed_ = false;              ///< the thread's last iteration ended with an exception
  std::atomic<int> flushing_{0};

  /// Guards the members below; while it is locked, only the outbox is called.
  std::mutex mutex_;
  std::condition_variable changed_;
  bool ended_ = false;
  bool abandoned_ = false;
  bool stopped_ = false;  ///< stop() was called
};

}  // namespace jx
