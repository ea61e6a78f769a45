// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferPlan.h"

#include <algorithm>

namespace jx {
namespace {

using Time = JXTransferPlan::Time;

std::optional<Time> earlier(std::optional<Time> a, std::optional<Time> b) {
  if (!a || !b) return a ? a : b;
  return std::min(*a, *b);
}

}  // namespace

JXTransferPlan::JXTransferPlan(const JXRetryTimings& timings)
    : timings_(timings), poisonRequests_(timings) {
  inFlight_.reserve(kMaxInFlight);
}

std::size_t JXTransferPlan::freeSlots(Time now) const {
  if (inBackground_ || isPaused(now) || retry_.isBackingOff(now)) return 0;
  // A probe is sent alone, after the requests in flight from before the failure have ended.
  const std::size_t slots = probing_ ? 1 : kMaxInFlight;
  return slots - std::min(slots, inFlight_.size());
}

JXTransferActions JXTransferPlan::next(Time now) {
  JXTransferActions actions;
  actions.sync = syncDue_ && now >= *syncDue_;
  if (inFlight_.empty() && lastEnd_ && now - *lastEnd_ > kIdleBeforeProbe) probing_ = true;
  if (deferredUntil_ && now >= *deferredUntil_) {
    deferredUntil_.reset();
    mayHaveRequests_ = true;
  }
  actions.mayStart = mayHaveRequests_ ? freeSlots(now) : 0;
  actions.probes = probing_;
  return actions;
}

JXTransferWait JXTransferPlan::nextWait(Time now) const {
  JXTransferWait wait;
  wait.wakeAt = syncDue_;
  if (!mayHaveRequests_) {
    wait.wakeAt = earlier(wait.wakeAt, deferredUntil_);
    return wait;
  }
  // A backoff or a pause ended since `next` was called: a request can be started immediately.
  if (freeSlots(now) > 0) wait.wakeAt = now;
  if (!inBackground_) {
    if (isPaused(now)) {
      wait.wakeAt = earlier(wait.wakeAt, pausedUntil_);
    } else if (retry_.isBackingOff(now)) {
      wait.wakeAt = earlier(wait.wakeAt, retry_.backoffUntil);
    }
  }
  wait.ignoresAdditions = syncDue_ && freeSlots(now) == 0;
  return wait;
}

void JXTransferPlan::storageChanged(Time now) {
  syncDue_ = earlier(syncDue_, now + boundedWait(timings_.syncDelay));
}

void JXTransferPlan::synced(bool unfinished, Time now) {
  syncDue_.reset();
  if (!unfinished) {
    syncBackoff_ = std::chrono::milliseconds::zero();
    return;
  }
  const auto shortest = std::max(boundedWait(timings_.syncDelay), std::chrono::milliseconds(1));
  syncBackoff_ = std::max(shortest, std::min(syncBackoff_ * 2, kMaxSyncBackoff));
  syncDue_ = now + syncBackoff_;
}

bool JXTransferPlan::isInFlight(std::uint64_t id) const {
  return std::any_of(inFlight_.begin(), inFlight_.end(),
                     [id](const Flight& each) { return each.id == id; });
}

void JXTransferPlan::started(std::uint64_t id) { inFlight_.push_back({id, retry_.round}); }

JXResponseClass JXTransferPlan::ended(std::uint64_t id, const JXAttemptResult& outcome,
                                      std::optional<std::chrono::milliseconds> retryAfter, Time now,
                                      double draw) {
  const JXResponseClass responseClass = classifyResponse(outcome);
  const auto flight = std::find_if(inFlight_.begin(), inFlight_.end(),
                                   [id](const Flight& each) { return each.id == id; });
  if (flight == inFlight_.end()) return responseClass;
  const std::uint64_t round = flight->round;
  inFlight_.erase(flight);
  lastEnd_ = now;
  if (responseClass == JXResponseClass::Retry) {
    probing_ = true;
    mayHaveRequests_ = true;
  } else if (round == retry_.round && !outcome.neverSendable) {
    probing_ = false;
  }
  // A request that cannot be sent provides no information about the network.
  if (!outcome.neverSendable) {
    retry_ = nextStep(retry_, {round, responseClass, retryAfter}, timings_, now, draw);
  }
  // Starts at the end of the pipeline's backoff, because no other request can be sent before it.
  poisonRequests_.ended(id, outcome, responseClass, std::max(now, retry_.backoffUntil));
  return responseClass;
}

std::vector<std::uint64_t> JXTransferPlan::aborted() {
  std::vector<std::uint64_t> ids;
  ids.reserve(inFlight_.size());
  for (const Flight& flight : inFlight_)
    ids.push_back(flight.id);
  inFlight_.clear();
  if (!ids.empty()) {
    probing_ = true;
    mayHaveRequests_ = true;
  }
  return ids;
}

void JXTransferPlan::failedInternally(Time now, double draw) {
  probing_ = true;
  mayHaveRequests_ = true;
  retry_ =
      nextStep(retry_, {retry_.round, JXResponseClass::Retry, std::nullopt}, timings_, now, draw);
}

}  // namespace jx
