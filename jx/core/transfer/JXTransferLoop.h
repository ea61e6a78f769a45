// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXStopMarks.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/core/transfer/JXTransferMailbox.h"
#include "jx/core/transfer/JXTransferPlan.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Dependencies and options of the transfer thread.
struct JXTransferSetup {
  std::shared_ptr<JXOutbox> outbox;
  std::shared_ptr<const JXClock> clock;  ///< time of day, for Retry-After dates
  JXRetryTimings timings;
  JXString caFile;  ///< PEM file of trusted certificates; null: the system's
  std::vector<std::string> pinnedPublicKeys;  ///< empty: any key
  JXString proxy;                             ///< proxy URL; "" for none; null: the environment's
  JXString httpUserAgent{"JXServerSide"};     ///< value of the User-Agent header
  JXDeliveryCallback onDelivery;
  std::shared_ptr<JXStopMarks> stopMarks;  ///< records stops; null: they hold in this process only
  /// Called with each consent, without a lock, before it takes effect. Empty: nothing to do.
  std::function<void()> beginStoring;
  /// Called on the transfer thread with each sync of the outbox. Makes the core's other stored data
  /// durable and cleans it up.
  std::function<void()> maintain;
  /// Called on the transfer thread before an attempt that follows a backoff or an idle time.
  std::function<void()> beforeConnecting;
  /// Requests the platform's user agent, stores and posts the result, then calls `known` once, on
  /// any thread, even without a user agent. Called without a lock, on the thread that calls
  /// `waitForUserAgent` or, if that was called first, `requestAwaitedUserAgent`. Empty: requests
  /// never wait for a user agent.
  std::function<void(std::function<void()> known)> requestUserAgent;

  std::shared_ptr<JXHttpTransport> transport;  ///< null: libcurl with the options above
  /// Requests that are added within this time after others were started are started together, and
  /// do not wake the thread.
  std::chrono::milliseconds gatherTime{20};

  // Replaced by tests. Defaults: the steady clock and a random number generator.
  std::function<std::chrono::steady_clock::time_point()> steadyNow;  ///< called on any thread
  std::function<double()> draw;  ///< random number in [0, 1) for the backoff jitter
};

/// The work of the transfer thread between two sleeps: applies commands, executes the plan with
/// outbox and transport, and processes the results. It belongs to one thread and creates none, so
/// that tests can run it step by step. `setup`, `attempts` and `failures` may be read on any
/// thread.
class JXTransferLoop {
 public:
  /// `setup.transport`, `setup.outbox`, `setup.steadyNow` and `setup.draw` must be set.
  explicit JXTransferLoop(JXTransferSetup setup);

  /// Applies commands; `added` is true when requests were added. Requests with the ID `before` or a
  /// larger one are not started until the next call: they may have been added after a command that
  /// was not read yet, such as a stop.
  void apply(const JXTransferCommands& commands, bool added,
             std::uint64_t before = std::numeric_limits<std::uint64_t>::max());
  /// Performs the actions that are due now and returns how to wait. Throws std::bad_alloc, and what
  /// the transport throws.
  JXTransferWait act();
  /// Waits as specified by `wait` (not at all when `mayWait` is false) and returns the results.
  std::vector<JXHttpResult> poll(const JXTransferWait& wait, bool mayWait);
  /// Processes the results of `poll`. What cannot be reported because memory is exhausted, `act`
  /// reports later.
  void complete(std::vector<JXHttpResult> results) noexcept;
  /// Requeues the requests in flight and makes the storage durable, before the process exits.
  void end();
  /// Recovers from an internal failure such as out of memory: requeues the requests in flight and
  /// starts a backoff. `error` is the cause, for the log.
  void recover(std::string_view error) noexcept;

  const JXTransferSetup& setup() const { return setup_; }
  std::uint64_t attempts() const { return attempts_.load(); }
  std::uint64_t failures() const { return failures_.load(); }

 private:
  void startGathered(JXTransferPlan::Time now);
  void startAll(JXTransferPlan::Time now);
  bool startOne(JXTransferPlan::Time now, bool isFurther);
  void abortInFlight();
  void sync();
  /// A request with a final response for whose report there was no memory.
  struct Unreported {
    JXHttpResult result;
    JXDeliveryOutcome outcome;
  };

  void completeSome(JXHttpResult* results, std::size_t count) noexcept;
  std::optional<JXDeliveryOutcome> completeOne(JXHttpResult& result) noexcept;
  bool reportFinal(const JXHttpResult& result, JXDeliveryOutcome outcome) noexcept;
  void reportRejected(const JXHttpResult& result);
  void reportUnreported() noexcept;
  bool reportDropped();
  bool hasUnreported() const;
  void logFailure(const JXHttpResult& result, std::uint32_t host, std::chrono::milliseconds retryIn,
                  bool isServerError) noexcept;
  void logResumed(std::uint32_t host) noexcept;
  void forgetLoggedFailures(const std::vector<JXOutboxHost>& hosts);
  void report(const JXDelivery& delivery);

  const JXTransferSetup setup_;
  JXTransferPlan plan_;
  JXTransferCommands applied_;
  std::uint64_t before_ = std::numeric_limits<std::uint64_t>::max();
  /// The failure of a host that was logged last.
  struct LoggedFailure {
    std::string cause;
    bool isOver = false;  ///< a request was delivered since then
  };

  std::map<std::uint32_t, LoggedFailure> loggedFailures_;  // by host; 0: of this thread
  std::vector<Unreported> unreported_;  ///< never grows beyond its first capacity
  std::vector<JXOutboxDrop> drops_;     ///< not reported yet
  std::atomic<std::uint64_t> attempts_{0};
  std::atomic<std::uint64_t> failures_{0};
};

}  // namespace jx
