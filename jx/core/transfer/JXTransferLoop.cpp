// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferLoop.h"

#include <algorithm>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/storage/JXEventId.h"
#include "jx/core/transfer/JXRetryAfter.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

// Calls a callback of the core or the application. Its exceptions must not end the thread.
template <class Callback, class... Arguments>
void callSafely(const Callback& callback, Arguments&&... arguments) noexcept {
  if (!callback) return;
  try {
    callback(std::forward<Arguments>(arguments)...);
  } catch (...) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "Callback threw an exception on the transfer thread; ignored", 3);
  }
}

void log(const std::string& message, int level) {
  JXLogger::sharedInstance().logMessage_withLevel(message, level);
}

std::string withId(const char* event, const JXString& eventId) {
  return event + (eventId.isPresent() ? " " + eventId.toStdString() : " without an ID");
}

std::string describe(const JXHttpResult& result) {
  if (result.outcome.status != 0) return "HTTP status " + std::to_string(result.outcome.status);
  return result.reason.empty() ? "no response" : result.reason;
}

const char* describe(JXDropReason reason) {
  switch (reason) {
    case JXDropReason::TooMany:
      return "queue limit exceeded: number of requests";
    case JXDropReason::TooLarge:
      return "queue limit exceeded: size in bytes";
    case JXDropReason::TooOld:
      return "queue limit exceeded: age";
    case JXDropReason::NoStorage:
      return "storage unavailable and in-memory queue limit exceeded";
    case JXDropReason::Unreadable:
      return "stored request is damaged";
    case JXDropReason::Purged:
      return "queue purged";
    case JXDropReason::None:
      break;
  }
  return "";
}

// Returns the cause without digits that differ between attempts, such as the elapsed time.
std::string causeOf(const JXHttpResult& result) {
  std::string cause = describe(result);
  if (result.outcome.status != 0) return cause;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  cause.erase(std::remove_if(cause.begin(), cause.end(), isDigit), cause.end());
  return cause;
}

}  // namespace

JXTransferLoop::JXTransferLoop(JXTransferSetup setup)
    : setup_(std::move(setup)), plan_(setup_.timings) {
  if (setup_.onDelivery) setup_.outbox->rememberDropped();
  // Requests of an earlier process may need a sync or a cleanup.
  if (setup_.outbox->needsSync()) plan_.storageChanged(setup_.steadyNow());
}

void JXTransferLoop::apply(const JXTransferCommands& commands, bool added) {
  const JXTransferPlan::Time now = setup_.steadyNow();
  plan_.setInBackground(commands.inBackground);
  plan_.pauseUntil(commands.pausedUntil);
  if (commands.suspensions != applied_.suspensions) abortInFlight();
  if (added || commands.filter != applied_.filter) plan_.requestsAdded();
  if (added || commands.storageChanges != applied_.storageChanges) plan_.storageChanged(now);
  if (commands.flushes != applied_.flushes) plan_.expedite(now);
  if (commands.purges != applied_.purges) {
    abortInFlight();
    plan_.storageChanged(now);
  }
  applied_ = commands;
}

JXTransferWait JXTransferLoop::act() {
  const JXTransferActions actions = plan_.next(setup_.steadyNow());
  if (actions.sync) sync();
  for (std::size_t i = 0; i < actions.mayStart; ++i) {
    if (!startOne(actions.probes)) break;
  }
  const bool hasReported = reportDropped();
  JXTransferWait wait = plan_.nextWait(setup_.steadyNow());
  // Further dropped requests are reported in the next iteration, so that a callback that causes new
  // drops cannot keep the thread from reading its commands.
  if (hasReported) wait.wakeAt = setup_.steadyNow();
  return wait;
}

std::vector<JXHttpResult> JXTransferLoop::poll(const JXTransferWait& wait, bool mayWait) {
  std::optional<milliseconds> timeout;
  if (!mayWait) {
    timeout = milliseconds::zero();
  } else if (wait.wakeAt) {
    // Rounded up: waking too early would loop without waiting until the time is reached.
    const auto left = std::chrono::ceil<milliseconds>(*wait.wakeAt - setup_.steadyNow());
    timeout = std::max(left, milliseconds::zero());
  }
  return setup_.transport->poll(timeout);
}

void JXTransferLoop::complete(std::vector<JXHttpResult> results) {
  for (JXHttpResult& result : results)
    completeOne(result);
}

void JXTransferLoop::end() {
  abortInFlight();
  sync();
}

void JXTransferLoop::recover(std::string_view error) noexcept {
  try {
    // One message per cause, not per attempt: a transport may fail in every attempt.
    std::string cause(error);
    log("Transfer thread error: " + cause + "; in-flight requests requeued",
        cause == lastFailure_ ? 6 : 3);
    lastFailure_ = std::move(cause);
    const JXTransferPlan::Time now = setup_.steadyNow();
    abortInFlight();
    plan_.failedInternally(now, setup_.draw());
  } catch (...) {
    // Nothing is lost: the requests stay in the outbox for the next process.
  }
}

bool JXTransferLoop::startOne(bool probes) {
  const JXTransferPlan::Time now = setup_.steadyNow();
  static const JXSendFilter everything;
  std::optional<JXOutboxRequest> request =
      setup_.outbox->take(plan_.deferred(now), applied_.filter ? *applied_.filter : everything);
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

void JXTransferLoop::completeOne(JXHttpResult& result) {
  if (!plan_.isInFlight(result.request.id)) {
    log("Transport returned a result for a request that is not in flight; ignored", 3);
    return;
  }
  // An application's transport may return an error code as the status.
  if (result.outcome.status < 100) result.outcome.status = 0;
  const std::optional<milliseconds> retryAfter =
      parseRetryAfter(result.retryAfter.view(), setup_.clock ? setup_.clock->nowMs() : 0);
  const JXTransferPlan::Time now = setup_.steadyNow();
  const std::uint64_t id = result.request.id;
  switch (plan_.ended(id, result.outcome, retryAfter, now, setup_.draw())) {
    case JXResponseClass::Delivered:
      plan_.storageChanged(now);
      if (!lastFailure_.empty()) log("Delivery resumed", 5);
      lastFailure_.clear();
      // A request dropped while in flight was already reported as dropped.
      if (setup_.outbox->markDelivered(id) && setup_.onDelivery) {
        report({JXDeliveryOutcome::Delivered, eventIdOf(result.request.body), result.outcome.status,
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
  const std::string reason = describe(result);
  const std::string what = result.outcome.status != 0
                               ? withId("Server rejected event", eventId)
                               : withId("Event", eventId) + " cannot be sent";
  log(what + ": " + reason + "; not retrying", 2);
  report({JXDeliveryOutcome::Rejected, eventId, result.outcome.status, reason, JXDropReason::None});
}

// Reports a few dropped requests; returns whether there were any.
bool JXTransferLoop::reportDropped() {
  if (!setup_.onDelivery) return false;
  const std::vector<JXOutboxDrop> drops = setup_.outbox->takeDropped();
  for (const JXOutboxDrop& drop : drops) {
    report({JXDeliveryOutcome::Dropped, drop.eventId, 0, describe(drop.reason), drop.reason});
  }
  return !drops.empty();
}

void JXTransferLoop::logFailure(const JXHttpResult& result, JXTransferPlan::Time now) {
  // One message per cause, not per attempt: a device may be offline for days.
  std::string cause = causeOf(result);
  const int level = cause == lastFailure_ ? 6 : 3;
  lastFailure_ = std::move(cause);
  if (!JXLogger::sharedInstance().printsLevel(level)) return;
  const auto backoff = std::max(
      std::chrono::ceil<milliseconds>(plan_.retryState().backoffUntil - now), milliseconds::zero());
  log("Delivery failed: " + describe(result) + "; retrying in " + std::to_string(backoff.count()) +
          " ms",
      level);
}

void JXTransferLoop::report(const JXDelivery& delivery) { callSafely(setup_.onDelivery, delivery); }

}  // namespace jx
