// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHostPipeline.h"

#include <algorithm>

namespace jx {
namespace {

// The wait has reached its maximum.
constexpr std::uint32_t kFailuresBeforeNewest = 12;

}  // namespace

bool JXHostPipeline::hasSlot(Time now) const {
  if (retry_.isBackingOff(now)) return false;
  // A probe is sent alone, after the requests in flight from before the failure have ended.
  if (isProbing_ || errors_.isProbing()) return inFlight_ == 0;
  return inFlight_ < (isMultiplexed_ ? kMaxMultiplexed : kMaxInFlight);
}

bool JXHostPipeline::mayStartNew(Time now) const {
  return hasSlot(now) && now >= errors_.newUntil && now >= gatherUntil_;
}

std::optional<JXHostPipeline::Order> JXHostPipeline::next(Time now) {
  if (inFlight_ == 0 && lastEnd_ && now - *lastEnd_ > kIdleBeforeProbe) isProbing_ = true;
  if (retryAt_ && now >= *retryAt_) {
    retryAt_.reset();
    hasRetries_ = true;
  }
  if (!hasSlot(now)) return std::nullopt;
  if (hasNew_) {
    if (now < errors_.newUntil || now < gatherUntil_) return std::nullopt;
    if (!errors_.isProbing()) return Order::Oldest;
    // A random choice finds a good request among any poison ones, unless they are nearly all of
    // the queue. Then a good one that is added is found as the newest.
    const bool isLongRun = errors_.newFailures >= kFailuresBeforeNewest;
    return isLongRun && errors_.newFailures % 2 == 0 ? Order::Newest : Order::Random;
  }
  const bool mayRetry =
      now >= errors_.retriesUntil && (errors_.retryFailures == 0 || inFlight_ == 0);
  return hasRetries_ && mayRetry ? std::optional(Order::Retry) : std::nullopt;
}

std::optional<JXHostPipeline::Time> JXHostPipeline::wakeAt(Time now) const {
  if (!hasNew_ && !hasRetries_) {
    // Requests that were added in the meantime have not been reported.
    return now < gatherUntil_ ? std::min(gatherUntil_, retryAt_.value_or(gatherUntil_)) : retryAt_;
  }
  if (!retry_.isBackingOff(now) && !hasSlot(now)) return std::nullopt;
  if (!hasNew_ && errors_.retryFailures != 0 && inFlight_ != 0) return std::nullopt;
  return std::max({now, retry_.backoffUntil,
                   hasNew_ ? std::max(errors_.newUntil, gatherUntil_) : errors_.retriesUntil});
}

void JXHostPipeline::nothingToStart(Order order, std::optional<Time> retryAt) {
  if (order != Order::Retry) {
    hasNew_ = false;
    gatherUntil_ = lastStart_ + gatherTime_;
  } else {
    hasRetries_ = false;
    retryAt_ = retryAt;
  }
}

void JXHostPipeline::ended(std::uint64_t id, bool isRetry, const JXCompletedAttempt& end,
                           const JXAttemptResult& outcome, const JXRetryTimings& timings, Time now,
                           double draw) {
  --inFlight_;
  lastEnd_ = now;
  // A request that cannot be sent provides no information about the host.
  if (outcome.neverSendable) return;
  if (outcome.status != 0) isMultiplexed_ = outcome.isMultiplexed;
  if (end.responseClass == JXResponseClass::Retry) {
    isProbing_ = true;
    requestsAvailable();
  } else if (end.responseClass == JXResponseClass::ServerError) {
    errors_ = afterServerError(errors_, id, isRetry, timings, now, draw);
    hasRetries_ = true;
  } else {
    errors_ = JXServerErrorState();
  }
  if (end.responseClass != JXResponseClass::Retry && end.round == retry_.round) isProbing_ = false;
  retry_ = nextStep(retry_, end, timings, now, draw);
}

void JXHostPipeline::aborted() {
  if (inFlight_ == 0) return;
  inFlight_ = 0;
  isProbing_ = true;
  requestsAvailable();
}

void JXHostPipeline::failedInternally(const JXRetryTimings& timings, Time now, double draw) {
  isProbing_ = true;
  requestsAvailable();
  retry_ =
      nextStep(retry_, {retry_.round, JXResponseClass::Retry, std::nullopt}, timings, now, draw);
}

void JXHostPipeline::expedite(const JXRetryTimings& timings, Time now) {
  retry_ = shortenBackoff(retry_, timings, now);
  errors_ = shortenWaits(errors_, timings, now);
  endGathering();
  requestsAvailable();
}

}  // namespace jx
