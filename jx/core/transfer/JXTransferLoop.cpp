// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferLoop.h"

#include <algorithm>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonObject.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/transfer/JXRetryAfter.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

// Hooks of the core and of the host: what they throw must not end the thread.
template <class Hook, class... Arguments>
void callSafely(const Hook& hook, Arguments&&... arguments) noexcept {
  if (!hook) return;
  try {
    hook(std::forward<Arguments>(arguments)...);
  } catch (...) {
    JXLogger::sharedInstance().logMessage_withLevel("A callback threw on the transfer thread", 3);
  }
}

void log(const std::string& message, int level) {
  JXLogger::sharedInstance().logMessage_withLevel(message, level);
}

std::string named(const JXString& eventId) {
  return eventId.isPresent() ? "event " + eventId.toStdString() : "event without an id";
}

std::string describe(const JXHttpResult& result) {
  return result.outcome.status != 0 ? "HTTP status " + std::to_string(result.outcome.status)
                                    : result.reason;
}

const char* describe(JXDropReason reason) {
  switch (reason) {
    case JXDropReason::TooMany:
      return "the queue held too many requests";
    case JXDropReason::TooLarge:
      return "the queue held too many bytes";
    case JXDropReason::TooOld:
      return "it waited for too long";
    case JXDropReason::NoStorage:
      return "the disk took nothing, and memory held too many";
    case JXDropReason::Unreadable:
      return "its bytes on the disk are damaged";
    case JXDropReason::Purged:
      return "the queue was purged";
    case JXDropReason::None:
      break;
  }
  return "";
}

// What failed, without the numbers that differ from try to try, such as the time that it took.
std::string causeOf(const JXHttpResult& result) {
  std::string cause = describe(result);
  if (result.outcome.status != 0) return cause;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  cause.erase(std::remove_if(cause.begin(), cause.end(), isDigit), cause.end());
  return cause;
}

}  // namespace

JXString eventIdOf(std::string_view body) {
  return JXJsonReader::read(body).value.object().get("context").object().get("event_id").string();
}

JXTransferLoop::JXTransferLoop(JXTransferSetup setup)
    : setup_(std::move(setup)), plan_(setup_.timings, setup_.steadyNow()) {
  if (setup_.onDelivery) setup_.outbox->rememberDropped();
  // What an earlier process left may be made durable or tidied.
  if (setup_.outbox->needsSync()) plan_.storageChanged(setup_.steadyNow());
}

void JXTransferLoop::take(const JXTransferCommands& orders, bool added) {
  const JXTransferPlan::Time now = setup_.steadyNow();
  plan_.setDisabled(orders.disabled);
  plan_.setInBackground(orders.inBackground);
  plan_.holdUntil(orders.heldUntil);
  if (orders.decisions != applied_.decisions) plan_.endStartHold();
  if (added) plan_.requestsAdded();
  if (added || orders.storageChanges != applied_.storageChanges) plan_.storageChanged(now);
  if (orders.flushes != applied_.flushes) plan_.expedite(now);
  if (orders.purges != applied_.purges) {
    abortInFlight();
    plan_.storageChanged(now);
  }
  applied_ = orders;
}

JXTransferWait JXTransferLoop::act() {
  const JXTransferActions step = plan_.next(setup_.steadyNow());
  if (step.abortInFlight) abortInFlight();
  if (step.sync) sync();
  for (std::size_t i = 0; i < step.mayStart; ++i) {
    if (!startOne(step.probes)) break;
  }
  const bool hasTold = reportDropped();
  JXTransferWait rest = plan_.rest(setup_.steadyNow());
  // There may be more, which wait for one turn, so that a callback that makes the queue drop again
  // cannot keep the thread from its orders.
  if (hasTold) rest.wakeAt = setup_.steadyNow();
  return rest;
}

void JXTransferLoop::waitAndSettle(const JXTransferWait& rest, bool mayWait) {
  std::optional<milliseconds> timeout;
  if (!mayWait) {
    timeout = milliseconds::zero();
  } else if (rest.wakeAt) {
    // Rounded up: waking a moment early would mean turning in circles until the time has come.
    const auto left = std::chrono::ceil<milliseconds>(*rest.wakeAt - setup_.steadyNow());
    timeout = std::max(left, milliseconds::zero());
  }
  for (JXHttpResult& result : setup_.transport->poll(timeout))
    settle(result);
}

void JXTransferLoop::end() {
  abortInFlight();
  sync();
}

void JXTransferLoop::recover(std::string_view what) noexcept {
  try {
    log("The transfer thread gave its requests back: " + std::string(what), 3);
    const JXTransferPlan::Time now = setup_.steadyNow();
    abortInFlight();
    plan_.failedInside(now, setup_.draw());
  } catch (...) {
    // Nothing is lost: the requests stay in the outbox and are found by the next process.
  }
}

bool JXTransferLoop::startOne(bool probes) {
  const JXTransferPlan::Time now = setup_.steadyNow();
  std::optional<JXOutboxRequest> request = setup_.outbox->take(plan_.deferred(now));
  if (!request) {
    plan_.nothingToStart(now);
    return false;
  }
  if (probes) callSafely(setup_.beforeConnecting);
  plan_.started(request->id);
  attempts_.fetch_add(1);
  setup_.transport->start({request->id, std::move(request->url), std::move(request->body)});
  return true;
}

void JXTransferLoop::abortInFlight() {
  setup_.transport->abortAll();
  for (const std::uint64_t id : plan_.aborted())
    setup_.outbox->requeue(id);
}

void JXTransferLoop::sync() {
  setup_.outbox->sync();
  callSafely(setup_.maintain);
  plan_.synced(setup_.outbox->needsSync(), setup_.steadyNow());
}

void JXTransferLoop::settle(JXHttpResult& result) {
  const std::optional<milliseconds> retryAfter =
      parseRetryAfter(result.retryAfter.view(), setup_.clock ? setup_.clock->nowMs() : 0);
  const JXTransferPlan::Time now = setup_.steadyNow();
  const std::uint64_t id = result.request.id;
  switch (plan_.ended(id, result.outcome, retryAfter, now, setup_.draw())) {
    case JXResponseClass::Delivered:
      plan_.storageChanged(now);
      if (!lastFailure_.empty()) log("Requests go out again", 5);
      lastFailure_.clear();
      // One that was dropped while it was in flight was told as dropped.
      if (setup_.outbox->markDelivered(id) && setup_.onDelivery) {
        tell({JXDeliveryOutcome::Delivered, eventIdOf(result.request.body), result.outcome.status,
              nullptr, JXDropReason::None});
      }
      break;
    case JXResponseClass::Rejected:
      plan_.storageChanged(now);
      if (setup_.outbox->moveToDeadLetters(id, result.outcome.status)) reportRejected(result);
      break;
    case JXResponseClass::Retry:
      setup_.outbox->requeue(id);
      failures_.fetch_add(1);
      logFailure(result, now);
      break;
  }
}

void JXTransferLoop::reportRejected(const JXHttpResult& result) {
  const JXString eventId = eventIdOf(result.request.body);
  const std::string why = describe(result);
  log("Request of " + named(eventId) + " is rejected and not tried again: " + why, 2);
  tell({JXDeliveryOutcome::Rejected, eventId, result.outcome.status, why, JXDropReason::None});
}

// A few at a time; true when there were any.
bool JXTransferLoop::reportDropped() {
  if (!setup_.onDelivery) return false;
  const std::vector<JXOutboxDrop> drops = setup_.outbox->takeDropped();
  for (const JXOutboxDrop& drop : drops) {
    tell({JXDeliveryOutcome::Dropped, eventIdOf(drop.body), 0, describe(drop.reason), drop.reason});
  }
  return !drops.empty();
}

void JXTransferLoop::logFailure(const JXHttpResult& result, JXTransferPlan::Time now) {
  // One line for each cause, not for each try: a device may be offline for days.
  std::string cause = causeOf(result);
  const int level = cause == lastFailure_ ? 6 : 3;
  lastFailure_ = std::move(cause);
  if (!JXLogger::sharedInstance().printsLevel(level)) return;
  const auto pause = std::max(std::chrono::ceil<milliseconds>(plan_.retryState().pausedUntil - now),
                              milliseconds::zero());
  log("Requests stay queued, next try in " + std::to_string(pause.count()) +
          " ms: " + describe(result),
      level);
}

void JXTransferLoop::tell(const JXDelivery& delivery) { callSafely(setup_.onDelivery, delivery); }

}  // namespace jx
