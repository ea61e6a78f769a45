// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxFailures.h"

#include <algorithm>

#include "jx/core/storage/JXAge.h"

namespace jx {
namespace {

// Longest delay that an earlier process can have chosen with the default timings.
constexpr std::chrono::milliseconds kMaxAdoptedDelay = std::chrono::hours(24);

}  // namespace

void JXOutboxFailures::adopt(std::uint64_t id, JXRequestFailures failures) {
  failures.delay = std::min(failures.delay, kMaxAdoptedDelay);
  failures.lastMs = std::min(failures.lastMs, clock_->nowMs());
  failures_.emplace(id, failures);
}

void JXOutboxFailures::record(std::uint64_t id, const JXRequestFailures& failures) {
  JXRequestFailures& stored = failures_[id];
  stored.count = failures.count;
  stored.hasRetryAfter = failures.hasRetryAfter;
  stored.delay = failures.delay;
  stored.lastMs = clock_->nowMs();
  // The time is not known until the clock was set.
  if (stored.firstMs < kJXFirstPlausibleMs) stored.firstMs = stored.lastMs;
}

JXRequestFailures JXOutboxFailures::of(std::uint64_t id) const {
  const auto found = failures_.find(id);
  return found != failures_.end() ? found->second : JXRequestFailures();
}

// Returns the request whose delay has been over for the longest time, or null.
JXOutboxEntry* JXOutboxFailures::nextRetry(std::uint32_t host, const JXSendFilter& filter) {
  JXOutboxEntry* next = nullptr;
  std::chrono::milliseconds least = std::chrono::milliseconds::zero();
  for (auto& [id, failures] : failures_) {
    const std::chrono::milliseconds remaining = remainingDelay(failures);
    if (remaining > least || (next != nullptr && remaining == least)) continue;
    JXOutboxEntry* const entry = index_.find(id);
    if (entry == nullptr || !index_.maySend(*entry, host, filter)) continue;
    next = entry;
    least = remaining;
  }
  return next;
}

std::optional<std::chrono::milliseconds> JXOutboxFailures::nextRetryIn(std::uint32_t host,
                                                                       const JXSendFilter& filter) {
  std::optional<std::chrono::milliseconds> least;
  for (auto& [id, failures] : failures_) {
    const std::chrono::milliseconds remaining = remainingDelay(failures);
    if (least && remaining >= *least) continue;
    const JXOutboxEntry* const entry = index_.find(id);
    if (entry != nullptr && index_.maySend(*entry, host, filter)) least = remaining;
  }
  return least;
}

// Returns how long a failed request still waits; zero or less when it may be retried. A clock that
// was set back does not prolong the wait beyond its delay.
std::chrono::milliseconds JXOutboxFailures::remainingDelay(JXRequestFailures& failures) const {
  const std::int64_t nowMs = clock_->nowMs();
  failures.lastMs = std::min(failures.lastMs, nowMs);
  // Unsigned, because the two times may be any numbers.
  const std::uint64_t passed =
      static_cast<std::uint64_t>(nowMs) - static_cast<std::uint64_t>(failures.lastMs);
  constexpr std::uint64_t kMaxPassed = INT64_MAX / 2;
  return failures.delay - std::chrono::milliseconds(std::min(passed, kMaxPassed));
}

std::chrono::milliseconds JXOutboxFailures::failedFor(std::uint64_t id) const {
  const auto found = failures_.find(id);
  const std::int64_t nowMs = clock_->nowMs();
  // Before the clock was set, the time of the first failure is not known.
  const bool isKnown = found != failures_.end() && found->second.count != 0 &&
                       found->second.firstMs >= kJXFirstPlausibleMs &&
                       found->second.firstMs <= nowMs;
  return std::chrono::milliseconds(isKnown ? nowMs - found->second.firstMs : 0);
}

void JXOutboxFailures::shortenDelays(std::chrono::milliseconds longest) {
  for (auto& [id, failures] : failures_) {
    if (!failures.hasRetryAfter) failures.delay = std::min(failures.delay, longest);
  }
}

}  // namespace jx
