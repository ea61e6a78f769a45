// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jx/core/transfer/JXPoisonRequestTracker.h"
#include "jx/core/transfer/JXRetryPolicy.h"

namespace jx {

/// What is to be done now, in this order.
struct JXTransferActions {
  bool abortInFlight = false;  ///< and give the requests back
  bool sync = false;
  std::size_t mayStart = 0;  ///< so many requests may be started
  bool probes = false;       ///< what is started finds out whether the network is there
};

/// How to wait when everything was done.
struct JXTransferWait {
  std::optional<std::chrono::steady_clock::time_point> wakeAt;
  /// A request that is added meanwhile need not wake the thread: it could not be started, and the
  /// next sync is already due at `wakeAt` or before.
  bool ignoresAdditions = false;
};

/// Decides when requests are started, aborted and made durable. It holds no thread, no clock and no
/// request: it is told what happened and when, and answers what is to be done.
///
/// At the start, after a failure and after an idle time only one request is in flight until an
/// answer came; then up to four are. A request on which the receiver stumbles again and again lets
/// others by (see JXPoisonRequestTracker). A hold stops new requests; disabling also aborts those
/// in flight. The sync follows a change by `syncDelay` whatever the network does. What the queue
/// held at the start waits for `startHold`, unless something tells before that requests may leave.
class JXTransferPlan {
 public:
  using Time = std::chrono::steady_clock::time_point;
  static constexpr std::size_t kMaxInFlight = 4;
  static constexpr std::chrono::minutes kIdleBeforeProbe{1};
  /// While syncs leave something undone (a full disk) they are tried at growing distances, up to
  /// this one.
  static constexpr std::chrono::milliseconds kLongestSyncPause{60'000};

  JXTransferPlan(const JXRetryTimings& timings, Time now);

  JXTransferActions next(Time now);
  JXTransferWait rest(Time now) const;

  /// Requests were added. At the start the plan takes it that there are some.
  void requestsAdded() {
    mayHaveRequests_ = true;
    endStartHold();
  }
  /// The hold at the start is over: it is known now whether requests may leave.
  void endStartHold() { startHoldUntil_.reset(); }
  /// Something on the disk was changed and is to be made durable.
  void storageChanged(Time now);
  /// A sync is over; `unfinished` when it left something undone.
  void synced(bool unfinished, Time now);

  void started(std::uint64_t id);
  /// Requests that are not to be started now, because the receiver stumbles on them.
  std::vector<std::uint64_t> deferred(Time now) const { return suspects_.deferred(now); }
  /// The queue had nothing to start but what is set aside.
  void nothingToStart(Time now) {
    mayHaveRequests_ = false;
    asideUntil_ = suspects_.firstEnd(now);
  }
  /// A try ended. `draw` in [0, 1) is the jitter of the pause that may follow.
  JXResponseClass ended(std::uint64_t id, const JXAttemptResult& outcome,
                        std::optional<std::chrono::milliseconds> retryAfter, Time now, double draw);
  /// The requests in flight were aborted and are in the queue again. They are no failure.
  std::vector<std::uint64_t> aborted();
  /// Something went wrong in the process itself, such as memory that ran out: pauses as after a
  /// failed try.
  void failedInside(Time now, double draw);

  void setDisabled(bool disabled) { disabled_ = disabled; }
  void setInBackground(bool inBackground) { inBackground_ = inBackground; }
  /// Holds requests until `until`; absent ends the hold.
  void holdUntil(std::optional<Time> until) { heldUntil_ = until; }
  /// A flush asks for haste: see `shortenBackoff`.
  void expedite(Time now) {
    retry_ = shortenBackoff(retry_, timings_, now);
    suspects_.endPauses();
    mayHaveRequests_ = true;
    endStartHold();
  }

  const JXRetryState& retryState() const { return retry_; }
  std::size_t inFlight() const { return inFlight_.size(); }

 private:
  struct Flight {
    std::uint64_t id;
    std::uint64_t round;
  };

  bool isHeld(Time now) const { return disabled_ || inBackground_ || timedHold(now); }
  std::optional<Time> timedHold(Time now) const;
  std::size_t freePlaces(Time now) const;

  JXRetryTimings timings_;
  JXRetryState retry_;
  std::vector<Flight> inFlight_;
  JXPoisonRequestTracker suspects_;
  std::optional<Time> asideUntil_;
  bool mayHaveRequests_ = true;
  bool probing_ = true;
  std::optional<Time> lastEnd_;
  bool disabled_ = false;
  bool inBackground_ = false;
  std::optional<Time> heldUntil_;
  std::optional<Time> startHoldUntil_;
  std::optional<Time> syncDue_;
  std::chrono::milliseconds syncPause_{0};
};

}  // namespace jx
