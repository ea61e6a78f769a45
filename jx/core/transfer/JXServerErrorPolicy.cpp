// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXServerErrorPolicy.h"

#include <algorithm>
#include <limits>

namespace jx {
namespace {

using std::chrono::milliseconds;
using Time = JXServerErrorState::Time;

// A poison request or two may fail without consequence for the others.
constexpr std::uint32_t kFailuresBeforeWait = 3;
// Shortest wait as a part of the doubling one, and the part that the draw adds.
constexpr double kShortestPart = 0.8;
constexpr double kDrawnPart = 0.13;
constexpr int kFirstDelayFactor = 60;
constexpr int kLongestDelayFactor = 96;
// Fits into the record of a failed request, as does any Retry-After that is honoured by default.
constexpr milliseconds kMaxDelay = std::chrono::hours(24 * 40);

void increment(std::uint32_t& count) {
  if (count < std::numeric_limits<std::uint32_t>::max()) ++count;
}

void addToRun(JXServerErrorState& state, std::uint64_t id) {
  const auto end = state.failedIds.begin() + state.run;
  if (state.isHostFailing() || std::find(state.failedIds.begin(), end, id) != end) return;
  state.failedIds[state.run++] = id;
}

milliseconds waitAfter(std::uint32_t failures, const JXRetryTimings& timings, double draw) {
  if (failures < kFailuresBeforeWait) return milliseconds::zero();
  const milliseconds longest = maxBackoffAfter(failures - kFailuresBeforeWait, timings);
  const double part = kShortestPart + kDrawnPart * (draw > 0 ? std::min(draw, 1.0) : 0);
  return milliseconds(static_cast<milliseconds::rep>(part * static_cast<double>(longest.count())));
}

milliseconds delayAfter(std::uint32_t failures, const JXRetryTimings& timings) {
  const milliseconds longest =
      std::min(boundedWait(timings.maxBackoff) * kLongestDelayFactor, kMaxDelay);
  milliseconds delay = boundedWait(timings.initialBackoff) * kFirstDelayFactor;
  for (std::uint32_t i = 1; i < failures && delay < longest; ++i)
    delay *= 2;
  return std::min(delay, longest);
}

}  // namespace

bool JXServerErrorState::isProbing() const noexcept { return newFailures >= kFailuresBeforeWait; }

JXServerErrorState afterServerError(const JXServerErrorState& state, std::uint64_t id, bool isRetry,
                                    const JXRetryTimings& timings, Time now, double draw) noexcept {
  JXServerErrorState next = state;
  increment(isRetry ? next.retryFailures : next.newFailures);
  addToRun(next, id);
  next.failedAt = now;
  // A retry does not prolong the wait of new requests, but counts as an attempt during it.
  next.newUntil = std::max(next.newUntil, now + waitAfter(next.newFailures, timings, draw));
  next.retriesUntil = std::max(
      {next.retriesUntil, next.newUntil, now + waitAfter(next.retryFailures, timings, draw)});
  return next;
}

JXServerErrorState shortenWaits(const JXServerErrorState& state, const JXRetryTimings& timings,
                                Time now) noexcept {
  JXServerErrorState next = state;
  if (now >= state.newUntil && now >= state.retriesUntil) return next;
  const Time soonest = std::max(now, state.failedAt + boundedWait(timings.initialBackoff));
  next.newUntil = std::min(state.newUntil, soonest);
  next.retriesUntil = std::min(state.retriesUntil, soonest);
  return next;
}

JXRequestFailures afterFailure(const JXRequestFailures& failures, bool isHostFailing,
                               std::optional<milliseconds> retryAfter,
                               const JXRetryTimings& timings) noexcept {
  JXRequestFailures next = failures;
  const bool counts = failures.count == 0 || !isHostFailing;
  if (counts && next.count < std::numeric_limits<std::uint16_t>::max()) ++next.count;
  next.delay = delayAfter(next.count, timings);
  const milliseconds requested =
      std::min(boundedWait(std::min(retryAfter.value_or(milliseconds(0)), timings.maxRetryAfter)),
               kMaxDelay);
  next.hasRetryAfter = requested > milliseconds::zero();
  next.delay = std::max(next.delay, requested);
  return next;
}

bool isPoison(milliseconds failedFor, const JXServerErrorState& host) noexcept {
  return failedFor >= kJXMaxFailing && !host.isHostFailing();
}

}  // namespace jx
