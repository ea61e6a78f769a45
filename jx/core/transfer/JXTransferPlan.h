// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jx/core/storage/JXOutboxHosts.h"
#include "jx/core/transfer/JXHostPipeline.h"
#include "jx/core/transfer/JXRetryPolicy.h"

namespace jx {

/// A request to start.
struct JXTransferStart {
  std::uint32_t host = 0;
  JXOutboxPick::Order order = JXOutboxPick::Order::Oldest;
  bool probes = false;  ///< the request tests whether the host is available
  std::chrono::steady_clock::time_point time{};  ///< now
};

/// The end of an attempt.
struct JXTransferEnd {
  JXResponseClass responseClass = JXResponseClass::Retry;
  JXRequestFailures failures;  ///< of the request, after a server error
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
/// Each host has a pipeline of its own, so that a host that is not available does not delay the
/// requests to another one. At most eight requests are in flight, of which hosts without a recent
/// response have at most four. Over a multiplexed connection, four more are in flight to a host,
/// which delay no other. A pause stops new requests. A sync follows a change within
/// `syncDelay`, independent of the network.
class JXTransferPlan {
 public:
  using Time = std::chrono::steady_clock::time_point;
  static constexpr std::size_t kMaxInFlight = 8;
  static constexpr std::size_t kMaxProbing = 4;
  /// Longest backoff between syncs that leave work undone, for example on a full disk.
  static constexpr std::chrono::milliseconds kMaxSyncBackoff{60'000};

  /// `gatherTime`: see JXHostPipeline.
  explicit JXTransferPlan(const JXRetryTimings& timings, std::chrono::milliseconds gatherTime = {});

  /// Sets the hosts that requests may be queued for, and forgets the others.
  void setHosts(const std::vector<JXOutboxHost>& hosts);
  bool isSyncDue(Time now) const { return syncDue_ && now >= *syncDue_; }
  /// Returns whether a sync is due now or later.
  bool awaitsSync() const { return syncDue_.has_value(); }
  /// Returns the next request to start; nullopt if none may be started now.
  std::optional<JXTransferStart> nextStart(Time now);
  JXTransferWait nextWait(Time now) const;

  /// Reports that requests were added. A new host is assumed to have requests.
  void requestsAdded();
  /// Reports that requests may be sent that could not be sent before, also failed ones.
  void requestsAvailable();
  /// Reports a change on the disk that must be made durable.
  void storageChanged(Time now);
  /// Reports a completed sync; `unfinished` when it left work undone.
  void synced(bool unfinished, Time now);

  /// Reports that a request was started, with its failures so far.
  void started(std::uint64_t id, const JXTransferStart& start,
               const JXRequestFailures& failures = {});
  /// Reports that the queue contains no such request; the next failed one may be retried at
  /// `retryAt`.
  void nothingToStart(const JXTransferStart& start, std::optional<Time> retryAt = {});
  /// Reports the end of an attempt and returns its class. `failedFor` is the time since the first
  /// server error of the request; `draw` in [0, 1) is the jitter of a wait that may follow.
  JXTransferEnd ended(std::uint64_t id, const JXAttemptResult& outcome,
                      std::optional<std::chrono::milliseconds> retryAfter,
                      std::chrono::milliseconds failedFor, Time now, double draw);
  /// Reports that the requests in flight were aborted and returns their IDs, until the next call.
  /// Does not count as a failure. Needs no memory.
  const std::vector<std::uint64_t>& aborted() noexcept;
  /// Reports an internal failure such as out of memory; starts a backoff as after a failed attempt.
  void failedInternally(Time now, double draw);

  void setInBackground(bool inBackground) { inBackground_ = inBackground; }
  /// Pauses requests until `until`; nullopt ends the pause.
  void pauseUntil(std::optional<Time> until) { pausedUntil_ = until; }
  /// Returns whether requests are gathered for a host; see JXHostPipeline.
  bool isGathering(Time now) const;
  /// Lets the gathered requests be started now.
  void endGathering();
  /// Applies a flush: ends gathering, and shortens the waits that the server did not request (see
  /// `shortenBackoff`).
  void expedite(Time now);

  std::size_t inFlight() const { return inFlight_.size(); }
  bool isInFlight(std::uint64_t id) const;
  /// Returns the host of a request in flight; 0 if it is not in flight.
  std::uint32_t hostOf(std::uint64_t id) const;
  /// Returns the pipeline of a host, or null.
  const JXHostPipeline* pipeline(std::uint32_t host) const;

 private:
  struct Flight {
    std::uint64_t id;
    std::uint32_t host;
    std::uint64_t round;
    JXRequestFailures failures;
  };

  JXHostPipeline* find(std::uint32_t host);
  bool isPaused(Time now) const { return pausedUntil_ && now < *pausedUntil_; }
  bool isWithinLimits(const JXHostPipeline& host) const;

  JXRetryTimings timings_;
  std::chrono::milliseconds gatherTime_;
  std::vector<JXHostPipeline> hosts_;
  std::vector<Flight> inFlight_;
  std::vector<std::uint64_t> aborted_;
  bool inBackground_ = false;
  std::optional<Time> pausedUntil_;
  std::optional<Time> syncDue_;
  std::chrono::milliseconds syncBackoff_{0};
};

}  // namespace jx
