// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/VirtualTransport.h"

#include <algorithm>
#include <utility>

namespace jx::simulation {
namespace {

constexpr std::int64_t kTimeoutMs = 30'000;
constexpr std::size_t kMaxInFlight = 4;

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
  if (const char* const refusal = world_.ledger.refusal(event, record)) {
    world_.violated(event.id + " is sent although it " + refusal);
  }
  const auto notBefore = record.notBeforeMs.find(event.host);
  if (notBefore != record.notBeforeMs.end() && world_.clock->steadyMs() < notBefore->second) {
    world_.violated(event.id + " is sent before the end of a Retry-After");
  }
  if (flights_.size() >= kMaxInFlight) world_.violated("more than four requests are in flight");
  countAttempt(event);
}

// Backoffs grow to five minutes, with jitter; a flush and a new failure each cost an attempt.
void VirtualTransport::countAttempt(const Event& event) {
  ProcessRecord& record = world_.ledger.process(process_);
  const std::int64_t failing = world_.clock->steadyMs() - record.failingMs;
  const std::int64_t alive = world_.clock->steadyMs() - record.startedMs;
  const int flushes = record.flushes - record.failingFlushes;
  if (++record.failingAttempts > 40 + failing / 30'000 + 4 * flushes) {
    world_.violated("too many attempts without a response: " +
                    std::to_string(record.failingAttempts));
  }
  int& attempts = const_cast<Event&>(event).attempts[process_];
  if (++attempts > 40 + alive / 30'000 + 4 * record.flushes) {
    world_.violated(event.id + " is attempted too often: " + std::to_string(attempts));
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
    if (const Event* const event = world_.ledger.find(flight->result.request.body)) {
      noteResult(*event, flight->result);
    }
    results.push_back(std::move(flight->result));
    flight = flights_.erase(flight);
  }
  return results;
}

void VirtualTransport::noteResult(const Event& event, const JXHttpResult& result) {
  ProcessRecord& record = world_.ledger.process(process_);
  const int status = result.outcome.status;
  world_.say("  process %d receives %d for %s", process_, status, event.id.c_str());
  if (status / 100 == 2 || status == 413) {
    record.failingMs = world_.clock->steadyMs();
    record.failingAttempts = 0;
    record.failingFlushes = record.flushes;
  }
  if (result.retryAfter.isPresent()) {
    std::int64_t& until = record.notBeforeMs[event.host];
    const std::int64_t seconds = std::stol(result.retryAfter.toStdString());
    until = std::max(until, world_.clock->steadyMs() + seconds * 1'000);
  }
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
