// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/transfer/JXRetryPolicy.h"
#include "jx/core/transfer/JXServerErrorPolicy.h"

namespace jx {

/// Decides when requests to one host may be started and which is next. Pure state: the caller
/// passes each occurrence with its time.
///
/// At the start, after a failure of the host and after an idle time, only one request is in flight
/// until a response is received; then up to four are, or eight over a multiplexed connection,
/// oldest first. While new requests fail with server errors in a row, single requests from the
/// whole queue are sent (see JXServerErrorState). A request that failed is retried only when no new
/// one is queued.
///
/// When all new requests have been started, those that are added within `gatherTime` after the last
/// start are gathered: they are started together at its end, and need not wake the thread. A
/// request that is added later is started immediately.
class JXHostPipeline {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Order = JXOutboxPick::Order;
  static constexpr std::size_t kMaxInFlight = 4;
  static constexpr std::size_t kMaxMultiplexed = 8;
  static constexpr std::chrono::minutes kIdleBeforeProbe{1};

  /// `failed` is the number of queued requests that received a server error in an earlier process.
  /// When there are several, the host counts as failing until it sends a final response.
  JXHostPipeline(std::uint32_t id, std::uint32_t failed, std::chrono::milliseconds gatherTime = {})
      : id_(id), gatherTime_(gatherTime) {
    if (failed >= JXServerErrorState::kFailingHostRun)
      errors_.run = JXServerErrorState::kFailingHostRun;
  }

  /// Returns which request may be started now; nullopt if none.
  std::optional<Order> next(Time now);
  /// Returns when `next` may return another request, `now` at the earliest; nullopt when only a
  /// response or a new request changes that.
  std::optional<Time> wakeAt(Time now) const;
  /// Returns whether a new request could be started now.
  bool mayStartNew(Time now) const;

  /// Reports that requests were added, which have not failed yet.
  void requestsAdded() { hasNew_ = true; }
  /// Reports that new or failed requests may have become available.
  void requestsAvailable() { hasNew_ = hasRetries_ = true; }
  /// Reports that no request of `order` is available; a retry is at `retryAt`.
  void nothingToStart(Order order, std::optional<Time> retryAt);
  void started(Time now) {
    ++inFlight_;
    lastStart_ = now;
  }
  bool isGathering(Time now) const { return now < gatherUntil_; }
  /// Lets the gathered requests be started now.
  void endGathering() { gatherUntil_ = Time(); }
  /// Reports the end of an attempt of the request `id` that was started in `round`.
  void ended(std::uint64_t id, bool isRetry, const JXCompletedAttempt& end,
             const JXAttemptResult& outcome, const JXRetryTimings& timings, Time now, double draw);
  /// Reports that the requests in flight were aborted.
  void aborted();
  /// Starts a backoff as after a failed attempt.
  void failedInternally(const JXRetryTimings& timings, Time now, double draw);
  /// Shortens the waits that the server did not request.
  void expedite(const JXRetryTimings& timings, Time now);

  std::uint32_t id() const { return id_; }
  std::size_t inFlight() const { return inFlight_; }
  /// Returns whether the host has sent no response recently.
  bool isProbing() const { return isProbing_; }
  const JXRetryState& retryState() const { return retry_; }
  const JXServerErrorState& errorState() const { return errors_; }

 private:
  bool hasSlot(Time now) const;

  std::uint32_t id_;
  std::chrono::milliseconds gatherTime_;
  JXRetryState retry_;
  JXServerErrorState errors_;
  std::size_t inFlight_ = 0;
  bool isProbing_ = true;
  bool isMultiplexed_ = false;  // as of the last response
  bool hasNew_ = true;          // there may be a queued request without a server error
  bool hasRetries_ = true;      // there may be a failed request whose delay is over
  Time lastStart_{};
  Time gatherUntil_{};  // no new request is started before
  std::optional<Time> retryAt_;
  std::optional<Time> lastEnd_;
};

}  // namespace jx
