// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPoisonRequestTracker.h"

#include <algorithm>

namespace jx {

void JXPoisonRequestTracker::ended(std::uint64_t id, const JXAttemptResult& outcome,
                                   JXResponseClass verdict, Time start) {
  const auto found = std::find_if(suspects_.begin(), suspects_.end(),
                                  [id](const Suspect& each) { return each.id == id; });
  if (verdict != JXResponseClass::Retry) {
    if (found != suspects_.end()) suspects_.erase(found);
    return;
  }
  // Without an answer it is the network that fails, which is the same for all requests.
  if (outcome.status < 500) return;
  if (found == suspects_.end()) {
    if (suspects_.size() >= kMost) suspects_.erase(suspects_.begin());
    suspects_.push_back({id, 1, Time::min()});
    return;
  }
  ++found->failures;
  if (found->failures < kTries) return;
  // Without jitter: the pipeline's own pause, which comes on top, has it.
  found->until = start + longestPauseAfter(found->failures - kTries, timings_);
}

std::vector<std::uint64_t> JXPoisonRequestTracker::deferred(Time now) const {
  std::vector<std::uint64_t> ids;
  for (const Suspect& suspect : suspects_) {
    if (now < suspect.until) ids.push_back(suspect.id);
  }
  return ids;
}

std::optional<JXPoisonRequestTracker::Time> JXPoisonRequestTracker::firstEnd(Time now) const {
  std::optional<Time> first;
  for (const Suspect& suspect : suspects_) {
    if (now < suspect.until) first = first ? std::min(*first, suspect.until) : suspect.until;
  }
  return first;
}

void JXPoisonRequestTracker::endPauses() {
  for (Suspect& suspect : suspects_)
    suspect.until = Time::min();
}

}  // namespace jx
