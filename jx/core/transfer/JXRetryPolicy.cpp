// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryPolicy.h"

#include <algorithm>
#include <limits>

namespace jx {
namespace {

using std::chrono::milliseconds;

// Keeps sums with the steady clock's nanoseconds far from overflow, whatever a host configures.
constexpr milliseconds kLongestAnyPause = std::chrono::hours(24 * 365);

milliseconds sane(milliseconds pause) {
  return std::clamp(pause, milliseconds::zero(), kLongestAnyPause);
}

milliseconds jittered(milliseconds longest, double draw) {
  if (!(draw > 0)) return milliseconds::zero();  // also when it is not a number
  const double part = std::min(draw, 1.0) * static_cast<double>(longest.count());
  return milliseconds(static_cast<milliseconds::rep>(part));
}

void waitAsAsked(JXRetryState& state, const JXCompletedAttempt& end, const JXRetryTimings& timings,
                 JXRetryState::Time now) {
  if (!end.retryAfter) return;
  const milliseconds asked = sane(std::min(*end.retryAfter, timings.maxRetryAfter));
  if (asked == milliseconds::zero()) return;
  state.pausedUntil = std::max(state.pausedUntil, now + asked);
  state.askedToWait = true;
}

}  // namespace

milliseconds longestPauseAfter(std::uint32_t failures, const JXRetryTimings& timings) {
  const milliseconds longest = sane(timings.maxBackoff);
  milliseconds pause = std::min(sane(timings.initialBackoff), longest);
  for (std::uint32_t i = 0; i < failures && pause > milliseconds::zero() && pause < longest; ++i) {
    pause = std::min(pause * 2, longest);
  }
  return pause;
}

JXResponseClass classifyResponse(const JXAttemptResult& outcome) noexcept {
  if (outcome.neverSendable) return JXResponseClass::Rejected;
  const int status = outcome.status;
  // A status below 200 is an interim one: the answer itself never came.
  if (status < 200) return JXResponseClass::Retry;
  if (status < 300) return JXResponseClass::Delivered;
  if (status == 408 || status == 425 || status == 429) return JXResponseClass::Retry;
  return status >= 500 && status < 600 ? JXResponseClass::Retry : JXResponseClass::Rejected;
}

JXRetryState nextStep(const JXRetryState& state, const JXCompletedAttempt& end,
                      const JXRetryTimings& timings, JXRetryState::Time now, double draw) noexcept {
  JXRetryState next = state;
  const bool ofThisRound = end.round == state.round;
  if (end.verdict != JXResponseClass::Retry) {
    if (ofThisRound) {
      next = JXRetryState{};
      next.round = state.round;
    }
    return next;
  }
  if (ofThisRound) {
    next.round = state.round + 1;
    next.failedAt = now;
    next.pausedUntil = now + jittered(longestPauseAfter(state.failures, timings), draw);
    next.askedToWait = false;
    if (next.failures < std::numeric_limits<std::uint32_t>::max()) ++next.failures;
  }
  waitAsAsked(next, end, timings, now);
  return next;
}

JXRetryState shortenBackoff(const JXRetryState& state, const JXRetryTimings& timings,
                            JXRetryState::Time now) noexcept {
  JXRetryState next = state;
  if (!state.isPaused(now) || state.askedToWait) return next;
  const JXRetryState::Time soonest = std::max(now, state.failedAt + sane(timings.initialBackoff));
  next.pausedUntil = std::min(state.pausedUntil, soonest);
  return next;
}

}  // namespace jx
