// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXHttpTransport.h"

namespace jx {

/// Returns `wait` limited to 0 to 365 days, so that a sum with the steady clock's nanoseconds
/// cannot overflow, whatever the configuration contains.
std::chrono::milliseconds boundedWait(std::chrono::milliseconds wait) noexcept;

/// Classification of an attempt: the request is delivered, retried when the host is available
/// again, retried on its own schedule, or permanently rejected.
enum class JXResponseClass { Delivered, Retry, ServerError, Rejected };

/// Returns Delivered for 2xx; Retry without a response and for 408, 425, 429 and 503, because the
/// host is not available; ServerError for any other 5xx, because the host is available but may
/// always fail on this request; Rejected for any other response and for a request that can never be
/// sent.
JXResponseClass classifyResponse(const JXAttemptResult& outcome) noexcept;

/// State of a host after the attempts so far. Times are those of the steady clock.
struct JXRetryState {
  using Time = std::chrono::steady_clock::time_point;

  /// An attempt belongs to the round in which it was started. A failure ends its round, so further
  /// failures of that round do not increase the backoff.
  std::uint64_t round = 0;
  std::uint32_t failures = 0;  ///< failed rounds since the last success
  Time failedAt = Time::min();
  Time backoffUntil = Time::min();
  bool hasRetryAfter =
      false;  ///< the backoff includes a Retry-After, so a flush does not shorten it

  bool isBackingOff(Time now) const noexcept { return now < backoffUntil; }
};

/// An attempt of `round` with its classification.
struct JXCompletedAttempt {
  std::uint64_t round = 0;
  JXResponseClass responseClass = JXResponseClass::Retry;
  std::optional<std::chrono::milliseconds> retryAfter;  ///< result of `requestedDelay`
};

/// Returns the longest backoff after `failures` earlier failures and one more. It doubles from
/// `initialBackoff` up to `maxBackoff`.
std::chrono::milliseconds maxBackoffAfter(std::uint32_t failures, const JXRetryTimings& timings);

/// Returns the state after an attempt that ended at `now`.
///
/// A failure that ends the round starts a backoff of `draw` (in [0, 1)) times `maxBackoffAfter`,
/// which doubles with each failed round, and at least the Retry-After. A later failure of an ended
/// round extends the backoff only by its Retry-After. A final response of the current round resets
/// the state; one of an ended round changes nothing, because the failure is more recent.
JXRetryState nextStep(const JXRetryState& state, const JXCompletedAttempt& end,
                      const JXRetryTimings& timings, JXRetryState::Time now, double draw) noexcept;

/// Returns the state after a flush: a backoff that was not requested by Retry-After is shortened so
/// that it ends `initialBackoff` after the failure, or at `now` when that time has passed. An
/// application that flushes in a loop while offline thus starts at most one attempt per
/// `initialBackoff`.
JXRetryState shortenBackoff(const JXRetryState& state, const JXRetryTimings& timings,
                            JXRetryState::Time now) noexcept;

}  // namespace jx
