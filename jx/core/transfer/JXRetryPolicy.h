// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "jx/core/transfer/JXDelivery.h"

namespace jx {

/// What one try of a request gave.
struct JXAttemptResult {
  int status = 0;              ///< HTTP status of the answer; 0 when there was none
  bool neverSendable = false;  ///< the request itself cannot be sent, now or later
};

/// What becomes of a request after a try.
enum class JXResponseClass { Delivered, Retry, Rejected };

/// Delivered for 2xx; Retry without an answer and for 408, 425, 429 and 5xx, which say that a later
/// try may go well; Rejected for any other answer and for a request that can never be sent.
JXResponseClass classifyResponse(const JXAttemptResult& outcome) noexcept;

/// How the pipeline stands after the tries so far. Times are those of the steady clock.
struct JXRetryState {
  using Time = std::chrono::steady_clock::time_point;

  /// Tries belong to the round in which they were started. A failure ends its round, so the other
  /// tries of that round, when they fail too, are no further step.
  std::uint64_t round = 0;
  std::uint32_t failures = 0;  ///< rounds that failed since the last success
  Time failedAt = Time::min();
  Time pausedUntil = Time::min();
  bool askedToWait = false;  ///< a Retry-After is part of the pause, which no flush cuts then

  bool isPaused(Time now) const noexcept { return now < pausedUntil; }
};

/// How a try of `round` ended.
struct JXCompletedAttempt {
  std::uint64_t round = 0;
  JXResponseClass verdict = JXResponseClass::Retry;
  std::optional<std::chrono::milliseconds> retryAfter;  ///< as `parseRetryAfter` gives it
};

/// The upper end of the pause after `failures` failures and one more: doubles from `initialBackoff`
/// up to `maxBackoff`.
std::chrono::milliseconds longestPauseAfter(std::uint32_t failures, const JXRetryTimings& timings);

/// The state after a try that ended at `now`. A failure that ends the round pauses the pipeline for
/// `draw` (in [0, 1)) times the longest pause of this step, which doubles with each failed round,
/// and at least for what Retry-After asks. A later failure of an ended round only makes the pause
/// longer when its Retry-After does. A lasting answer to a try of the present round starts over;
/// one to a try of an ended round changes nothing, since the failure is the newer knowledge of
/// the two.
JXRetryState nextStep(const JXRetryState& state, const JXCompletedAttempt& end,
                      const JXRetryTimings& timings, JXRetryState::Time now, double draw) noexcept;

/// The state after a flush asked for haste: a pause that no Retry-After asked for ends
/// `initialBackoff` after the failure, or at `now` when that has passed. So a host that flushes in
/// a loop while offline makes one try each `initialBackoff` at most.
JXRetryState shortenBackoff(const JXRetryState& state, const JXRetryTimings& timings,
                            JXRetryState::Time now) noexcept;

}  // namespace jx
