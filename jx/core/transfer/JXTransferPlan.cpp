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

JXTransferPlan::JXTransferPlan(const JXRetryTimings& timings, Time now)
    : timings_(timings), suspects_(timings), startHoldUntil_(now + timings.startHold) {
  inFlight_.reserve(kMaxInFlight);
}

// Until when a hold that ends by itself lasts, if there is one.
std::optional<Time> JXTransferPlan::timedHold(Time now) const {
  std::optional<Time> last;
  for (const std::optional<Time>& until : {heldUntil_, startHoldUntil_}) {
    if (until && now < *until) last = last ? std::max(*last, *until) : *until;
  }
  return last;
}

std::size_t JXTransferPlan::freePlaces(Time now) const {
  if (isHeld(now) || retry_.isPaused(now)) return 0;
  // A probe goes alone: those still in flight from before the failure end first.
  const std::size_t places = probing_ ? 1 : kMaxInFlight;
  return places - std::min(places, inFlight_.size());
}

JXTransferActions JXTransferPlan::next(Time now) {
  JXTransferActions step;
  step.abortInFlight = disabled_ && !inFlight_.empty();
  step.sync = syncDue_ && now >= *syncDue_;
  if (inFlight_.empty() && lastEnd_ && now - *lastEnd_ > kIdleBeforeProbe) probing_ = true;
  if (asideUntil_ && now >= *asideUntil_) {
    asideUntil_.reset();
    mayHaveRequests_ = true;
  }
  step.mayStart = mayHaveRequests_ ? freePlaces(now) : 0;
  step.probes = probing_;
  return step;
}

JXTransferWait JXTransferPlan::rest(Time now) const {
  JXTransferWait rest;
  rest.wakeAt = syncDue_;
  if (!mayHaveRequests_) {
    rest.wakeAt = earlier(rest.wakeAt, asideUntil_);
    return rest;
  }
  // A pause or a hold ended since `next` was asked: there is something to start at once.
  if (freePlaces(now) > 0) rest.wakeAt = now;
  if (!disabled_ && !inBackground_) {
    if (const std::optional<Time> until = timedHold(now)) {
      rest.wakeAt = earlier(rest.wakeAt, until);
    } else if (retry_.isPaused(now)) {
      rest.wakeAt = earlier(rest.wakeAt, retry_.pausedUntil);
    }
  }
  // An addition ends the hold at the start, so it must be heard then.
  rest.ignoresAdditions = syncDue_ && freePlaces(now) == 0 && !startHoldUntil_;
  return rest;
}

void JXTransferPlan::storageChanged(Time now) {
  syncDue_ = earlier(syncDue_, now + timings_.syncDelay);
}

void JXTransferPlan::synced(bool unfinished, Time now) {
  syncDue_.reset();
  if (!unfinished) {
    syncPause_ = std::chrono::milliseconds::zero();
    return;
  }
  const auto shortest = std::max(timings_.syncDelay, std::chrono::milliseconds(1));
  syncPause_ = std::max(shortest, std::min(syncPause_ * 2, kLongestSyncPause));
  syncDue_ = now + syncPause_;
}

void JXTransferPlan::started(std::uint64_t id) { inFlight_.push_back({id, retry_.round}); }

JXResponseClass JXTransferPlan::ended(std::uint64_t id, const JXAttemptResult& outcome,
                                      std::optional<std::chrono::milliseconds> retryAfter, Time now,
                                      double draw) {
  const JXResponseClass verdict = classifyResponse(outcome);
  const auto flight = std::find_if(inFlight_.begin(), inFlight_.end(),
                                   [id](const Flight& each) { return each.id == id; });
  if (flight == inFlight_.end()) return verdict;
  const std::uint64_t round = flight->round;
  inFlight_.erase(flight);
  lastEnd_ = now;
  if (verdict == JXResponseClass::Retry) {
    probing_ = true;
    mayHaveRequests_ = true;
  } else if (round == retry_.round && !outcome.neverSendable) {
    probing_ = false;
  }
  // A request that cannot be sent says nothing about the network.
  if (!outcome.neverSendable) {
    retry_ = nextStep(retry_, {round, verdict, retryAfter}, timings_, now, draw);
  }
  // Counted from the end of the pipeline's pause, in which the others could not have been tried.
  suspects_.ended(id, outcome, verdict, std::max(now, retry_.pausedUntil));
  return verdict;
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

void JXTransferPlan::failedInside(Time now, double draw) {
  probing_ = true;
  mayHaveRequests_ = true;
  retry_ =
      nextStep(retry_, {retry_.round, JXResponseClass::Retry, std::nullopt}, timings_, now, draw);
}

}  // namespace jx
