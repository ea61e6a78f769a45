// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPoisonRequestTracker.h"

#include <algorithm>

namespace jx {

void JXPoisonRequestTracker::ended(std::uint64_t id, const JXAttemptResult& outcome,
                                   JXResponseClass responseClass, Time start) {
  const auto found = std::find_if(tracked_.begin(), tracked_.end(),
                                  [id](const Tracked& each) { return each.id == id; });
  if (responseClass != JXResponseClass::Retry) {
    if (found != tracked_.end()) tracked_.erase(found);
    return;
  }
  // Without a response the network fails, which affects all requests alike.
  if (outcome.status < 500) return;
  if (found == tracked_.end()) {
    if (tracked_.size() >= kMaxTracked) tracked_.erase(tracked_.begin());
    tracked_.push_back({id, 1, Time::min()});
    return;
  }
  ++found->failures;
  if (found->failures < kFailureLimit) return;
  // Without jitter, because the backoff of the pipeline, which is added, has it.
  found->until = start + maxBackoffAfter(found->failures - kFailureLimit, timings_);
}

std::vector<std::uint64_t> JXPoisonRequestTracker::deferred(Time now) const {
  std::vector<std::uint64_t> ids;
  for (const Tracked& request : tracked_) {
    if (now < request.until) ids.push_back(request.id);
  }
  return ids;
}

std::optional<JXPoisonRequestTracker::Time> JXPoisonRequestTracker::nextRetry(Time now) const {
  std::optional<Time> first;
  for (const Tracked& request : tracked_) {
    if (now < request.until) first = first ? std::min(*first, request.until) : request.until;
  }
  return first;
}

void JXPoisonRequestTracker::endDeferrals() {
  for (Tracked& request : tracked_)
    request.until = Time::min();
}

}  // namespace jx
