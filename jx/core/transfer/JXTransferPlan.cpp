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

JXTransferPlan::JXTransferPlan(const JXRetryTimings& timings, std::chrono::milliseconds gatherTime)
    : timings_(timings), gatherTime_(gatherTime) {
  constexpr std::size_t kMost = 2 * kMaxInFlight;  // to two hosts with multiplexed connections
  inFlight_.reserve(kMost);
  aborted_.reserve(kMost);
}

void JXTransferPlan::setHosts(const std::vector<JXOutboxHost>& hosts) {
  const auto isGone = [&](const JXHostPipeline& known) {
    return known.inFlight() == 0 &&
           std::none_of(hosts.begin(), hosts.end(),
                        [&](const JXOutboxHost& each) { return each.id == known.id(); });
  };
  hosts_.erase(std::remove_if(hosts_.begin(), hosts_.end(), isGone), hosts_.end());
  for (const JXOutboxHost& host : hosts) {
    if (find(host.id) == nullptr) hosts_.emplace_back(host.id, host.failed, gatherTime_);
  }
}

JXHostPipeline* JXTransferPlan::find(std::uint32_t host) {
  const auto found = std::find_if(hosts_.begin(), hosts_.end(),
                                  [host](const auto& each) { return each.id() == host; });
  return found != hosts_.end() ? &*found : nullptr;
}

const JXHostPipeline* JXTransferPlan::pipeline(std::uint32_t host) const {
  return const_cast<JXTransferPlan*>(this)->find(host);
}

bool JXTransferPlan::isWithinLimits(const JXHostPipeline& host) const {
  constexpr std::size_t kMaxCounted = JXHostPipeline::kMaxInFlight;
  std::size_t counted = 0;
  std::size_t probing = 0;
  for (const JXHostPipeline& each : hosts_) {
    counted += std::min(each.inFlight(), kMaxCounted);
    probing += each.isProbing() ? each.inFlight() : 0;
  }
  if (host.inFlight() < kMaxCounted && counted >= kMaxInFlight) return false;
  return !host.isProbing() || probing < kMaxProbing;
}

std::optional<JXTransferStart> JXTransferPlan::nextStart(Time now) {
  if (inBackground_ || isPaused(now)) return std::nullopt;
  // Hosts that are available first, and each as much as the others.
  const auto isBefore = [](const JXHostPipeline& a, const JXHostPipeline& b) {
    const auto failuresOfA = a.retryState().failures;
    const auto failuresOfB = b.retryState().failures;
    return failuresOfA != failuresOfB ? failuresOfA < failuresOfB : a.inFlight() < b.inFlight();
  };
  const JXHostPipeline* best = nullptr;
  std::optional<JXTransferStart> start;
  for (JXHostPipeline& host : hosts_) {
    const std::optional<JXOutboxPick::Order> order = host.next(now);
    if (!order || !isWithinLimits(host) || (best != nullptr && !isBefore(host, *best))) continue;
    best = &host;
    start = JXTransferStart{host.id(), *order, host.isProbing(), now};
  }
  return start;
}

JXTransferWait JXTransferPlan::nextWait(Time now) const {
  JXTransferWait wait;
  wait.wakeAt = syncDue_;
  bool mayStartNew = hosts_.empty();
  for (const JXHostPipeline& host : hosts_) {
    if (!isWithinLimits(host)) continue;  // a response ends this
    mayStartNew = mayStartNew || host.mayStartNew(now);
    const std::optional<Time> wakeAt = host.wakeAt(now);
    if (!wakeAt || inBackground_) continue;
    wait.wakeAt = earlier(wait.wakeAt, isPaused(now) ? std::max(*wakeAt, *pausedUntil_) : *wakeAt);
  }
  wait.ignoresAdditions = syncDue_ && (inBackground_ || isPaused(now) || !mayStartNew);
  return wait;
}

void JXTransferPlan::requestsAdded() {
  for (JXHostPipeline& host : hosts_)
    host.requestsAdded();
}

void JXTransferPlan::requestsAvailable() {
  for (JXHostPipeline& host : hosts_)
    host.requestsAvailable();
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

bool JXTransferPlan::isInFlight(std::uint64_t id) const { return hostOf(id) != 0; }

std::uint32_t JXTransferPlan::hostOf(std::uint64_t id) const {
  const auto found = std::find_if(inFlight_.begin(), inFlight_.end(),
                                  [id](const Flight& each) { return each.id == id; });
  return found != inFlight_.end() ? found->host : 0;
}

void JXTransferPlan::started(std::uint64_t id, const JXTransferStart& start,
                             const JXRequestFailures& failures) {
  JXHostPipeline* const host = find(start.host);
  if (host == nullptr) return;
  host->started(start.time);
  inFlight_.push_back({id, start.host, host->retryState().round, failures});
}

void JXTransferPlan::nothingToStart(const JXTransferStart& start, std::optional<Time> retryAt) {
  if (JXHostPipeline* const host = find(start.host)) host->nothingToStart(start.order, retryAt);
}

JXTransferEnd JXTransferPlan::ended(std::uint64_t id, const JXAttemptResult& outcome,
                                    std::optional<std::chrono::milliseconds> retryAfter,
                                    std::chrono::milliseconds failedFor, Time now, double draw) {
  JXTransferEnd end{classifyResponse(outcome), {}};
  const auto found = std::find_if(inFlight_.begin(), inFlight_.end(),
                                  [id](const Flight& each) { return each.id == id; });
  if (found == inFlight_.end()) return end;
  const Flight flight = *found;
  inFlight_.erase(found);
  JXHostPipeline& host = *find(flight.host);
  host.ended(id, flight.failures.count != 0, {flight.round, end.responseClass, retryAfter}, outcome,
             timings_, now, draw);
  if (end.responseClass != JXResponseClass::ServerError) return end;
  const JXServerErrorState& errors = host.errorState();
  end.failures = afterFailure(flight.failures, errors.isHostFailing(), retryAfter, timings_);
  if (isPoison(failedFor, errors)) end.responseClass = JXResponseClass::Rejected;
  return end;
}

const std::vector<std::uint64_t>& JXTransferPlan::aborted() noexcept {
  aborted_.clear();
  for (const Flight& flight : inFlight_)
    aborted_.push_back(flight.id);
  inFlight_.clear();
  for (JXHostPipeline& host : hosts_)
    host.aborted();
  return aborted_;
}

void JXTransferPlan::failedInternally(Time now, double draw) {
  for (JXHostPipeline& host : hosts_)
    host.failedInternally(timings_, now, draw);
}

bool JXTransferPlan::isGathering(Time now) const {
  return std::any_of(hosts_.begin(), hosts_.end(),
                     [now](const JXHostPipeline& each) { return each.isGathering(now); });
}

void JXTransferPlan::endGathering() {
  for (JXHostPipeline& host : hosts_)
    host.endGathering();
}

void JXTransferPlan::expedite(Time now) {
  for (JXHostPipeline& host : hosts_)
    host.expedite(timings_, now);
}

}  // namespace jx
