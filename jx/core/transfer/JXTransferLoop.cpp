// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferLoop.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/storage/JXEventId.h"
#include "jx/core/transfer/JXRetryAfter.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

// Memory for the reports of deliveries while memory is exhausted. Of further ones, the application
// is not notified.
constexpr std::size_t kMaxUnreported = 64;
constexpr milliseconds kReportRetryDelay{1'000};
constexpr milliseconds kUnreadableDelay{1'000};

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

void log(std::string_view message, int level) {
  JXLogger::sharedInstance().logMessage_withLevel(message, level);
}

std::string withId(const char* event, const JXString& eventId) {
  return eventId.isPresent() ? concat({event, " ", eventId.view()})
                             : concat({event, " without an ID"});
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
    case JXDropReason::OutOfMemory:
      return "out of memory";
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
    : setup_(std::move(setup)), plan_(setup_.timings, setup_.gatherTime) {
  unreported_.reserve(kMaxUnreported);
  if (setup_.onDelivery) setup_.outbox->rememberDropped();
  // Requests of an earlier process may need a sync or a cleanup.
  if (setup_.outbox->needsSync()) plan_.storageChanged(setup_.steadyNow());
}

void JXTransferLoop::apply(const JXTransferCommands& commands, bool added, std::uint64_t before) {
  before_ = before;
  const JXTransferPlan::Time now = setup_.steadyNow();
  plan_.pauseUntil(commands.pausedUntil);
  const bool wasSuspended = commands.suspensions != applied_.suspensions;
  if (wasSuspended) abortInFlight();
  if (added) plan_.requestsAdded();
  if (commands.filter != applied_.filter) plan_.requestsAvailable();
  if (added || commands.storageChanges != applied_.storageChanges) plan_.storageChanged(now);
  if (commands.flushes != applied_.flushes) {
    setup_.outbox->shortenRetryDelays(boundedWait(setup_.timings.initialBackoff));
    plan_.expedite(now);
  }
  if (commands.purges != applied_.purges) {
    abortInFlight();
    plan_.storageChanged(now);
  }
  const bool entersBackground = commands.inBackground && !applied_.inBackground;
  applied_ = commands;
  // The transport starts nothing until the suspension ends.
  if (entersBackground && !wasSuspended && plan_.isGathering(now)) startGathered(now);
  plan_.setInBackground(commands.inBackground);
}

// Starts the requests that wait only to be started together, unless they were added in the
// background.
void JXTransferLoop::startGathered(JXTransferPlan::Time now) {
  plan_.endGathering();
  before_ = std::min(before_, applied_.backgroundFrom);
  startAll(now);
  plan_.requestsAdded();  // those of the background stay
}

void JXTransferLoop::startAll(JXTransferPlan::Time now) {
  bool isFurther = false;
  while (startOne(now, isFurther))
    isFurther = true;
}

JXTransferWait JXTransferLoop::act() {
  reportUnreported();
  // Read once: requests that become due during the call are started by the next one.
  const JXTransferPlan::Time now = setup_.steadyNow();
  if (plan_.isSyncDue(now)) sync();
  const std::vector<JXOutboxHost> hosts = setup_.outbox->hosts();
  plan_.setHosts(hosts);
  forgetLoggedFailures(hosts);
  startAll(now);
  // Anything above may have written to the files, also without sending.
  if (!plan_.awaitsSync() && setup_.outbox->needsSync()) plan_.storageChanged(now);
  const bool hasReported = reportDropped();
  JXTransferWait wait = plan_.nextWait(setup_.steadyNow());
  // Further dropped requests are reported in the next iteration, so that a callback that causes new
  // drops cannot keep the thread from reading its commands.
  if (hasReported) {
    wait.wakeAt = setup_.steadyNow();
  } else if (hasUnreported()) {
    const JXTransferPlan::Time retryAt = setup_.steadyNow() + kReportRetryDelay;
    wait.wakeAt = wait.wakeAt ? std::min(*wait.wakeAt, retryAt) : retryAt;
  }
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

// An exception would lose the other results, whose requests would be sent again.
void JXTransferLoop::complete(std::vector<JXHttpResult> results) noexcept {
  for (std::size_t done = 0; done < results.size(); done += JXTransferPlan::kMaxInFlight) {
    completeSome(&results[done], std::min(JXTransferPlan::kMaxInFlight, results.size() - done));
  }
}

// Processes up to kMaxInFlight results, and removes the delivered requests together.
void JXTransferLoop::completeSome(JXHttpResult* results, std::size_t count) noexcept {
  std::array<std::optional<JXDeliveryOutcome>, JXTransferPlan::kMaxInFlight> outcomes;
  JXDeliveredRequests delivered;
  static_assert(sizeof delivered.ids == JXTransferPlan::kMaxInFlight * sizeof(std::uint64_t));
  for (std::size_t i = 0; i < count; ++i) {
    outcomes[i] = completeOne(results[i]);
    if (outcomes[i] == JXDeliveryOutcome::Delivered) delivered.ids[i] = results[i].request.id;
  }
  setup_.outbox->markDelivered(delivered);
  for (std::size_t i = 0; i < count; ++i) {
    // A request purged while in flight was already reported as dropped.
    if (outcomes[i] == JXDeliveryOutcome::Delivered && delivered.ids[i] == 0) continue;
    if (!outcomes[i] || reportFinal(results[i], *outcomes[i])) continue;
    if (unreported_.size() < unreported_.capacity()) {
      unreported_.push_back({std::move(results[i]), *outcomes[i]});
    }
  }
}

void JXTransferLoop::end() {
  abortInFlight();
  sync();
}

void JXTransferLoop::recover(std::string_view error) noexcept {
  abortInFlight();
  plan_.failedInternally(setup_.steadyNow(), setup_.draw());
  try {
    // One message per cause, not per attempt: a transport may fail in every attempt.
    std::string cause(error);
    log(concat({"Transfer thread error: ", cause, "; in-flight requests requeued"}),
        cause == loggedFailures_[0].cause ? 6 : 3);
    loggedFailures_[0] = {std::move(cause), false};
  } catch (...) {
    // Out of memory for the message.
  }
}

// Returns false when no request may be started now.
bool JXTransferLoop::startOne(JXTransferPlan::Time now, bool isFurther) {
  const std::optional<JXTransferStart> start = plan_.nextStart(now);
  if (!start) return false;
  static const JXSendFilter everything;
  const JXSendFilter& filter = applied_.filter ? *applied_.filter : everything;
  const bool isRandom = start->order == JXOutboxPick::Order::Random;
  const JXOutboxPick pick{start->host, start->order, isRandom ? setup_.draw() : 0, before_,
                          isFurther};
  std::optional<JXOutboxRequest> request = setup_.outbox->take(pick, filter);
  if (!request) {
    const bool isRetry = start->order == JXOutboxPick::Order::Retry;
    std::optional<JXTransferPlan::Time> retryAt;
    if (const auto wait = isRetry ? setup_.outbox->nextRetryIn(start->host, filter)
                                  : std::optional<milliseconds>()) {
      // A request that is due cannot be read: its file cannot be restored now.
      retryAt = now + (*wait > milliseconds::zero() ? boundedWait(*wait) : kUnreadableDelay);
    }
    plan_.nothingToStart(*start, retryAt);
    return true;
  }
  if (start->probes) callSafely(setup_.beforeConnecting);
  plan_.started(request->id, *start, request->failures);
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
  // It restores lost files, and adopts the requests that the start had no memory for.
  plan_.requestsAvailable();
  callSafely(setup_.maintain);
  plan_.synced(setup_.outbox->needsSync(), setup_.steadyNow());
}

// Returns the outcome to be reported, if there is one. The caller removes a delivered request.
std::optional<JXDeliveryOutcome> JXTransferLoop::completeOne(JXHttpResult& result) noexcept {
  if (!plan_.isInFlight(result.request.id)) {
    log("Transport returned a result for a request that is not in flight; ignored", 3);
    return std::nullopt;
  }
  // An application's transport may return an error code as the status.
  if (result.outcome.status < 100) result.outcome.status = 0;
  const std::optional<milliseconds> retryAfter =
      requestedDelay(result.retryAfter.view(), result.date.view(),
                     setup_.clock ? setup_.clock->nowMs() : 0, setup_.timings.maxBackoff);
  const JXTransferPlan::Time now = setup_.steadyNow();
  const std::uint64_t id = result.request.id;
  const std::uint32_t host = plan_.hostOf(id);
  const JXTransferEnd end =
      plan_.ended(id, result.outcome, retryAfter, setup_.outbox->failedFor(id), now, setup_.draw());
  switch (end.responseClass) {
    case JXResponseClass::Delivered:
      plan_.storageChanged(now);
      logResumed(host);
      return JXDeliveryOutcome::Delivered;
    case JXResponseClass::Rejected:
      plan_.storageChanged(now);
      if (setup_.outbox->moveToDeadLetters(id, result.outcome.status)) {
        return JXDeliveryOutcome::Rejected;
      }
      break;
    case JXResponseClass::ServerError:
      plan_.storageChanged(now);
      if (!setup_.outbox->requeueFailed(id, end.failures)) plan_.requestsAvailable();
      failures_.fetch_add(1);
      logFailure(result, host, end.failures.delay, true);
      break;
    case JXResponseClass::Retry:
      // A device may be offline for days; the sync notices when the folder was deleted.
      plan_.storageChanged(now);
      setup_.outbox->requeue(id);
      failures_.fetch_add(1);
      const auto backoff = plan_.pipeline(host)->retryState().backoffUntil - now;
      logFailure(result, host, std::chrono::ceil<milliseconds>(backoff), false);
      break;
  }
  return std::nullopt;
}

// Returns false if memory is exhausted.
bool JXTransferLoop::reportFinal(const JXHttpResult& result, JXDeliveryOutcome outcome) noexcept {
  try {
    if (outcome == JXDeliveryOutcome::Rejected) {
      reportRejected(result);
    } else if (setup_.onDelivery) {
      report({JXDeliveryOutcome::Delivered, eventIdOf(result.request.body), result.outcome.status,
              nullptr, JXDropReason::None});
    }
    return true;
  } catch (...) {
    return false;
  }
}

void JXTransferLoop::reportUnreported() noexcept {
  const auto isReported = [this](const Unreported& each) {
    return reportFinal(each.result, each.outcome);
  };
  unreported_.erase(std::remove_if(unreported_.begin(), unreported_.end(), isReported),
                    unreported_.end());
}

void JXTransferLoop::reportRejected(const JXHttpResult& result) {
  const JXString eventId = eventIdOf(result.request.body);
  const std::string reason = describe(result);
  const std::string what = result.outcome.status != 0
                               ? withId("Server rejected event", eventId)
                               : withId("Event", eventId) + " cannot be sent";
  const JXDelivery delivery{JXDeliveryOutcome::Rejected, eventId, result.outcome.status, reason,
                            JXDropReason::None};
  log(concat({what, ": ", reason, "; not retrying"}), 2);
  report(delivery);
}

// Reports a few dropped requests; returns whether there were any.
bool JXTransferLoop::reportDropped() {
  if (!setup_.onDelivery) return false;
  if (drops_.empty()) drops_ = setup_.outbox->takeDropped();
  auto next = drops_.begin();
  try {
    for (; next != drops_.end(); ++next) {
      report({JXDeliveryOutcome::Dropped, next->eventId, 0, describe(next->reason), next->reason});
    }
  } catch (...) {
    // Out of memory: the others are reported later.
  }
  const bool hasReported = next != drops_.begin();
  drops_.erase(drops_.begin(), next);
  return hasReported;
}

bool JXTransferLoop::hasUnreported() const {
  return !unreported_.empty() || !drops_.empty() ||
         (setup_.onDelivery && setup_.outbox->hasDropped());
}

// One message per cause and host, not per attempt: a device may be offline for days. Poison
// requests fail while others are delivered, so their cause ends only when none of them is queued.
void JXTransferLoop::logFailure(const JXHttpResult& result, std::uint32_t host,
                                milliseconds retryIn, bool isServerError) noexcept try {
  std::string cause = causeOf(result);
  LoggedFailure& last = loggedFailures_[host];
  const bool isKnown = cause == last.cause && (isServerError || !last.isOver);
  const int level = isKnown ? 6 : 3;
  if (JXLogger::sharedInstance().printsLevel(level)) {
    const auto shown = std::max(retryIn, milliseconds::zero());
    log(concat({"Delivery failed: ", describe(result), "; retrying in ",
                std::to_string(shown.count()), " ms"}),
        level);
  }
  if (!isKnown) last = {std::move(cause), false};
} catch (...) {
  // Out of memory for the message.
}

void JXTransferLoop::logResumed(std::uint32_t host) noexcept {
  const bool threadHadFailed = loggedFailures_.erase(0) != 0;
  const auto last = loggedFailures_.find(host);
  const bool hostHadFailed = last != loggedFailures_.end() && !last->second.isOver;
  if (hostHadFailed) last->second.isOver = true;
  if (threadHadFailed || hostHadFailed) log("Delivery resumed", 5);
}

void JXTransferLoop::forgetLoggedFailures(const std::vector<JXOutboxHost>& hosts) {
  for (auto each = loggedFailures_.begin(); each != loggedFailures_.end();) {
    const auto host = std::find_if(hosts.begin(), hosts.end(), [&](const JXOutboxHost& known) {
      return known.id == each->first;
    });
    const bool isForgotten = each->first != 0 && host == hosts.end();
    const bool isOver = each->second.isOver && (host == hosts.end() || host->failed == 0);
    each = isForgotten || isOver ? loggedFailures_.erase(each) : std::next(each);
  }
}

void JXTransferLoop::report(const JXDelivery& delivery) { callSafely(setup_.onDelivery, delivery); }

}  // namespace jx
