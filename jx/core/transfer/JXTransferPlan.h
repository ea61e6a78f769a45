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

/// Actions that are due now, in this order.
struct JXTransferActions {
  bool sync = false;
  std::size_t mayStart = 0;  ///< number of requests that may be started
  bool probes = false;       ///< the next request tests whether the network is available
};

/// How to wait after all actions were performed.
struct JXTransferWait {
  std::optional<std::chrono::steady_clock::time_point> wakeAt;
  /// True when an added request need not wake the thread, because it could not be started and the
  /// next sync is due at `wakeAt` or before.
  bool ignoresAdditions = false;
};

/// Decides when requests are started, aborted and made durable. It contains no thread, clock or
/// request: the caller passes each occurrence with its time, and the plan returns the due actions.
///
/// At the start, after a failure and after an idle time, only one request is in flight until a
/// response is received; then up to four are. A request that the server repeatedly fails to process
/// does not block the others (see JXPoisonRequestTracker). A pause stops new requests. A sync
/// follows a change within `syncDelay`, independent of the network.
class JXTransferPlan {
 public:
  using Time = std::chrono::steady_clock::time_point;
  static constexpr std::size_t kMaxInFlight = 4;
  static constexpr std::chrono::minutes kIdleBeforeProbe{1};
  /// Longest backoff between syncs that leave work undone, for example on a full disk.
  static constexpr std::chrono::milliseconds kMaxSyncBackoff{60'000};

  explicit JXTransferPlan(const JXRetryTimings& timings);

  JXTransferActions next(Time now);
  JXTransferWait nextWait(Time now) const;

  /// Reports that requests were added or may be sent now. Initially the plan assumes that there are
  /// requests.
  void requestsAdded() { mayHaveRequests_ = true; }
  /// Reports a change on the disk that must be made durable.
  void storageChanged(Time now);
  /// Reports a completed sync; `unfinished` when it left work undone.
  void synced(bool unfinished, Time now);

  /// Reports that a request was started.
  void started(std::uint64_t id);
  /// Returns the requests that must not be started now, because the server repeatedly failed on
  /// them.
  std::vector<std::uint64_t> deferred(Time now) const { return poisonRequests_.deferred(now); }
  /// Reports that the queue contains no request to start except deferred ones.
  void nothingToStart(Time now) {
    mayHaveRequests_ = false;
    deferredUntil_ = poisonRequests_.nextRetry(now);
  }
  /// Reports the end of an attempt and returns its class. `draw` in [0, 1) is the jitter of a
  /// backoff that may follow.
  JXResponseClass ended(std::uint64_t id, const JXAttemptResult& outcome,
                        std::optional<std::chrono::milliseconds> retryAfter, Time now, double draw);
  /// Reports that the requests in flight were aborted and returns their IDs. Does not count as a
  /// failure.
  std::vector<std::uint64_t> aborted();
  /// Reports an internal failure such as out of memory; starts a backoff as after a failed attempt.
  void failedInternally(Time now, double draw);

  void setInBackground(bool inBackground) { inBackground_ = inBackground; }
  /// Pauses requests until `until`; nullopt ends the pause.
  void pauseUntil(std::optional<Time> until) { pausedUntil_ = until; }
  /// Applies a flush: shortens the backoff (see `shortenBackoff`) and ends deferrals.
  void expedite(Time now) {
    retry_ = shortenBackoff(retry_, timings_, now);
    poisonRequests_.endDeferrals();
    mayHaveRequests_ = true;
  }

  const JXRetryState& retryState() const { return retry_; }
  std::size_t inFlight() const { return inFlight_.size(); }
  bool isInFlight(std::uint64_t id) const;

 private:
  struct Flight {
    std::uint64_t id;
    std::uint64_t round;
  };

  bool isPaused(Time now) const { return pausedUntil_ && now < *pausedUntil_; }
  std::size_t freeSlots(Time now) const;

  JXRetryTimings timings_;
  JXRetryState retry_;
  std::vector<Flight> inFlight_;
  JXPoisonRequestTracker poisonRequests_;
  std::optional<Time> deferredUntil_;
  bool mayHaveRequests_ = true;
  bool probing_ = true;
  std::optional<Time> lastEnd_;
  bool inBackground_ = false;
  std::optional<Time> pausedUntil_;
  std::optional<Time> syncDue_;
  std::chrono::milliseconds syncBackoff_{0};
};

}  // namespace jx
