// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryPolicy.h"

#include <algorithm>
#include <limits>

namespace jx {
namespace {

using std::chrono::milliseconds;

milliseconds jittered(milliseconds longest, double draw) {
  if (!(draw > 0)) return milliseconds::zero();  // also for NaN
  const double part = std::min(draw, 1.0) * static_cast<double>(longest.count());
  return milliseconds(static_cast<milliseconds::rep>(part));
}

void applyRetryAfter(JXRetryState& state, const JXCompletedAttempt& end,
                     const JXRetryTimings& timings, JXRetryState::Time now) {
  if (!end.retryAfter) return;
  const milliseconds delay = boundedWait(std::min(*end.retryAfter, timings.maxRetryAfter));
  if (delay == milliseconds::zero()) return;
  state.backoffUntil = std::max(state.backoffUntil, now + delay);
  state.hasRetryAfter = true;
}

}  // namespace

milliseconds boundedWait(milliseconds wait) noexcept {
  constexpr milliseconds kMax = std::chrono::hours(24 * 365);
  return std::clamp(wait, milliseconds::zero(), kMax);
}

milliseconds maxBackoffAfter(std::uint32_t failures, const JXRetryTimings& timings) {
  const milliseconds longest = boundedWait(timings.maxBackoff);
  milliseconds backoff = std::min(boundedWait(timings.initialBackoff), longest);
  for (std::uint32_t i = 0; i < failures && backoff > milliseconds::zero() && backoff < longest;
       ++i) {
    backoff = std::min(backoff * 2, longest);
  }
  return backoff;
}

JXResponseClass classifyResponse(const JXAttemptResult& outcome) noexcept {
  if (outcome.neverSendable) return JXResponseClass::Rejected;
  const int status = outcome.status;
  // A status below 200 is interim: the final response was not received.
  if (status < 200) return JXResponseClass::Retry;
  if (status < 300) return JXResponseClass::Delivered;
  const bool isUnavailable = status == 408 || status == 425 || status == 429 || status == 503;
  if (isUnavailable) return JXResponseClass::Retry;
  return status >= 500 && status < 600 ? JXResponseClass::ServerError : JXResponseClass::Rejected;
}

JXRetryState nextStep(const JXRetryState& state, const JXCompletedAttempt& end,
                      const JXRetryTimings& timings, JXRetryState::Time now, double draw) noexcept {
  JXRetryState next = state;
  const bool isCurrentRound = end.round == state.round;
  if (end.responseClass != JXResponseClass::Retry) {
    if (isCurrentRound) {
      next = JXRetryState{};
      next.round = state.round;
    }
    return next;
  }
  if (isCurrentRound) {
    next.round = state.round + 1;
    next.failedAt = now;
    next.backoffUntil = now + jittered(maxBackoffAfter(state.failures, timings), draw);
    next.hasRetryAfter = false;
    if (next.failures < std::numeric_limits<std::uint32_t>::max()) ++next.failures;
  }
  applyRetryAfter(next, end, timings, now);
  return next;
}

JXRetryState shortenBackoff(const JXRetryState& state, const JXRetryTimings& timings,
                            JXRetryState::Time now) noexcept {
  JXRetryState next = state;
  if (!state.isBackingOff(now) || state.hasRetryAfter) return next;
  const JXRetryState::Time soonest =
      std::max(now, state.failedAt + boundedWait(timings.initialBackoff));
  next.backoffUntil = std::min(state.backoffUntil, soonest);
  return next;
}

}  // namespace jx
