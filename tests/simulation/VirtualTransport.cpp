// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/VirtualTransport.h"

#include <algorithm>
#include <utility>

namespace jx::simulation {
namespace {

constexpr std::int64_t kTimeoutMs = 30'000;
constexpr std::size_t kMaxInFlight = 8;
constexpr std::int64_t kMaxToHost = 4;
constexpr std::size_t kFailingHostRun = 5;
constexpr std::int64_t kHourMs = 3'600'000;
constexpr std::int64_t kShortestScheduleMs = kHourMs / 4;
constexpr std::int64_t kGiveUpMs = 72 * kHourMs;

}  // namespace

void VirtualTransport::start(JXHttpRequest request) {
  Event* const event = world_.ledger.find(request.body);
  if (event == nullptr) {
    world_.violated("a request is sent that nobody has executed: " + request.body.substr(0, 80));
    return;
  }
  Flight flight;
  if (isSuspended_ || !world_.disk.isAlive(process_)) {
    flight.endsMs = INT64_MAX;  // until it is aborted
  } else {
    checkStart(request, *event);
    flight = respond(*event);
    countAttempt(*event, flight.result.outcome.status);
  }
  flight.result.request = std::move(request);
  flights_.push_back(std::move(flight));
}

void VirtualTransport::checkStart(const JXHttpRequest& request, Event& event) {
  ProcessRecord& record = world_.ledger.process(process_);
  world_.say("  process %d sends %s", process_, event.id.c_str());
  if (request.body != event.body || request.url != event.url) {
    world_.violated(event.id + " is sent with other bytes");
  }
  if (const char* const refusal = world_.ledger.refusal(event, record, world_.disk.failures())) {
    world_.violated(event.id + " is sent although it " + refusal);
  }
  const auto notBefore = record.notBeforeMs.find(event.host);
  if (notBefore != record.notBeforeMs.end() && world_.clock->steadyMs() < notBefore->second) {
    world_.violated(event.id + " is sent before the end of a Retry-After");
  }
  const auto toHost = std::count_if(flights_.begin(), flights_.end(), [&](const Flight& flight) {
    const Event* const other = world_.ledger.find(flight.result.request.body);
    return other != nullptr && other->host == event.host;
  });
  if (flights_.size() >= kMaxInFlight || toHost >= kMaxToHost) {
    world_.violated("too many requests are in flight");
  }
}

// Backoffs grow to five minutes, with full jitter; a flush costs an attempt.
void VirtualTransport::countAttempt(Event& event, int status) {
  ProcessRecord& record = world_.ledger.process(process_);
  const std::int64_t nowMs = world_.clock->steadyMs();
  ++event.attempts;
  ProcessRecord::Outage& outage = record.outages[event.host];
  if (status == 500 && event.firstErrorMs < 0) event.firstErrorMs = nowMs;
  // A host that fails on so many requests in a row decides when each is retried.
  if (status == 500 && outage.failed.size() < kFailingHostRun) {
    ++event.serverErrors;
    // On a schedule of its own, which grows to hours; a power loss or a full disk may forget it.
    const std::int64_t failing = nowMs - event.firstErrorMs;
    const auto processes = static_cast<std::int64_t>(world_.ledger.processes().size());
    if (event.serverErrors > 15 + failing / kShortestScheduleMs + processes + world_.flushes) {
      world_.violated(event.id + " is attempted too often: " + std::to_string(event.serverErrors));
    }
  }
  if (status / 100 == 2 || status == 413) return;
  if (outage.sinceMs < 0) {
    outage.sinceMs = nowMs;
    outage.flushes = record.flushes;
  }
  const int flushes = record.flushes - outage.flushes;
  if (++outage.attempts > 40 + (nowMs - outage.sinceMs) / 100'000 + 4 * flushes) {
    world_.violated("too many attempts without a response: " + std::to_string(outage.attempts));
  }
}

VirtualTransport::Flight VirtualTransport::respond(Event& event) {
  const Network& network = world_.network;
  Flight flight;
  flight.endsMs = world_.clock->steadyMs() + world_.random.between(20, 1'500);
  if (network.isOffline || network.isHostDead[event.host]) {
    if (world_.random.chance(30)) flight.endsMs = world_.clock->steadyMs() + kTimeoutMs;
    return flight;
  }
  JXAttemptResult& outcome = flight.result.outcome;
  if (network.failsOnEverything) {
    outcome.status = world_.random.chance(80) ? 503 : 429;
    if (network.retryAfterSeconds > 0) {
      flight.result.retryAfter = JXString(std::to_string(network.retryAfterSeconds));
    }
  } else if (event.isPoisonous && !network.isRepaired) {
    outcome.status = 500;
  } else if (event.isRejected) {
    outcome.status = 413;
  } else {
    ++event.received;
    outcome.status = 200;
    if (world_.random.chance(network.lostResponses)) {
      outcome.status = 0;
      event.mayRepeat = true;
      flight.endsMs = world_.clock->steadyMs() + kTimeoutMs;
    }
  }
  return flight;
}

std::optional<std::int64_t> VirtualTransport::nextMs() const {
  std::optional<std::int64_t> next;
  for (const Flight& flight : flights_) {
    if (flight.endsMs != INT64_MAX) next = std::min(next.value_or(INT64_MAX), flight.endsMs);
  }
  return next;
}

std::vector<JXHttpResult> VirtualTransport::poll(std::optional<std::chrono::milliseconds>) {
  std::vector<JXHttpResult> results;
  for (auto flight = flights_.begin(); flight != flights_.end();) {
    if (flight->endsMs > world_.clock->steadyMs()) {
      ++flight;
      continue;
    }
    if (Event* const event = world_.ledger.find(flight->result.request.body)) {
      noteResult(*event, flight->result);
    }
    results.push_back(std::move(flight->result));
    flight = flights_.erase(flight);
  }
  return results;
}

void VirtualTransport::noteResult(Event& event, const JXHttpResult& result) {
  ProcessRecord& record = world_.ledger.process(process_);
  const int status = result.outcome.status;
  world_.say("  process %d receives %d for %s", process_, status, event.id.c_str());
  const std::int64_t failing = world_.clock->steadyMs() - event.firstErrorMs;
  if (status == 500 && failing >= kGiveUpMs) event.isGivenUp = true;
  if (status / 100 == 2 || status == 413) {
    record.outages.erase(event.host);
  } else if (status == 500) {
    record.outages[event.host].failed.insert(&event);
  }
  if (result.retryAfter.isPresent()) {
    std::int64_t& until = record.notBeforeMs[event.host];
    const std::int64_t seconds = std::stol(result.retryAfter.toStdString());
    until = std::max(until, world_.clock->steadyMs() + seconds * 1'000);
  }
}

void VirtualTransport::resume() noexcept {
  if (isSuspended_ && !flights_.empty()) {
    world_.violated("requests in flight are not aborted before the sending resumes");
  }
  isSuspended_ = false;
}

// The server may have received the aborted requests.
void VirtualTransport::abortAll() noexcept {
  for (const Flight& flight : flights_) {
    Event* const event = world_.ledger.find(flight.result.request.body);
    if (event != nullptr) event->mayRepeat = true;
  }
  flights_.clear();
}

}  // namespace jx::simulation
