// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxFailures.h"

#include <algorithm>

namespace jx {
namespace {

// Longest delay that an earlier process can have chosen with the default timings.
constexpr std::chrono::milliseconds kMaxAdoptedDelay = std::chrono::hours(24);

// Returns how long a failed request still waits; zero or less when it may be retried. Time in which
// the system was switched off counts as far as the time of day shows it. A clock that was set back
// does not prolong the wait.
std::chrono::milliseconds remainingDelay(const JXRequestFailures& failures,
                                         const JXStoredTime& now) {
  const std::int64_t passed =
      std::max(now.runningMs - failures.lastMs, now.dayMs - failures.lastDayMs);
  return failures.delay - std::chrono::milliseconds(passed);
}

}  // namespace

void JXOutboxFailures::adopt(std::uint64_t id, JXRequestFailures failures) {
  failures.delay = std::min(failures.delay, kMaxAdoptedDelay);
  failures_.emplace(id, failures);
}

void JXOutboxFailures::record(std::uint64_t id, const JXRequestFailures& failures,
                              const JXStoredTime& now) {
  const auto [found, isFirst] = failures_.emplace(id, failures);
  JXRequestFailures& stored = found->second;
  stored.count = failures.count;
  stored.hasRetryAfter = failures.hasRetryAfter;
  stored.delay = failures.delay;
  stored.lastMs = now.runningMs;
  stored.lastDayMs = now.dayMs;
  if (isFirst) stored.firstMs = now.runningMs;
}

JXRequestFailures JXOutboxFailures::of(std::uint64_t id) const {
  const auto found = failures_.find(id);
  return found != failures_.end() ? found->second : JXRequestFailures();
}

// Returns the request whose delay has been over for the longest time, or null.
JXOutboxEntry* JXOutboxFailures::nextRetry(std::uint32_t host, const JXSendFilter& filter,
                                           const JXStoredTime& now) {
  JXOutboxEntry* next = nullptr;
  std::chrono::milliseconds least = std::chrono::milliseconds::zero();
  for (const auto& [id, failures] : failures_) {
    const std::chrono::milliseconds remaining = remainingDelay(failures, now);
    if (remaining > least || (next != nullptr && remaining == least)) continue;
    JXOutboxEntry* const entry = index_.find(id);
    if (entry == nullptr || !index_.maySend(*entry, host, filter)) continue;
    next = entry;
    least = remaining;
  }
  return next;
}

std::optional<std::chrono::milliseconds> JXOutboxFailures::nextRetryIn(std::uint32_t host,
                                                                       const JXSendFilter& filter,
                                                                       const JXStoredTime& now) {
  std::optional<std::chrono::milliseconds> least;
  for (const auto& [id, failures] : failures_) {
    const std::chrono::milliseconds remaining = remainingDelay(failures, now);
    if (least && remaining >= *least) continue;
    const JXOutboxEntry* const entry = index_.find(id);
    if (entry != nullptr && index_.maySend(*entry, host, filter)) least = remaining;
  }
  return least;
}

std::chrono::milliseconds JXOutboxFailures::failedFor(std::uint64_t id,
                                                      const JXStoredTime& now) const {
  const auto found = failures_.find(id);
  const bool hasFailed = found != failures_.end() && found->second.count != 0;
  return std::chrono::milliseconds(hasFailed ? now.runningMs - found->second.firstMs : 0);
}

void JXOutboxFailures::shortenDelays(std::chrono::milliseconds longest) {
  for (auto& [id, failures] : failures_) {
    if (!failures.hasRetryAfter) failures.delay = std::min(failures.delay, longest);
  }
}

}  // namespace jx
