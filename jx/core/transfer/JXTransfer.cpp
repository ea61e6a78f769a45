// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransfer.h"

#include <exception>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXSignalsBlocked.h"
#include "jx/core/transfer/JXCurlTransport.h"

namespace jx {
namespace {

using SteadyTime = std::chrono::steady_clock::time_point;
using std::chrono::milliseconds;

// Longest wait of the thread after two failed iterations in a row.
constexpr milliseconds kDelayAfterFailures{1'000};

JXTransferSetup completed(JXTransferSetup setup) {
  if (!setup.steadyNow) setup.steadyNow = [] { return std::chrono::steady_clock::now(); };
  if (!setup.draw) {
    // Created with the first result, not at the start of the application.
    setup.draw = [random = std::optional<std::mt19937>()]() mutable {
      if (!random) random.emplace(std::random_device()());
      return std::uniform_real_distribution<double>(0.0, 1.0)(*random);
    };
  }
  if (!setup.transport) {
    JXHttpOptions options;
    options.caFile = setup.caFile;
    options.pinnedPublicKeys = setup.pinnedPublicKeys;
    options.proxy = setup.proxy;
    options.userAgent = setup.httpUserAgent;
    options.connectTimeout = setup.timings.connectTimeout;
    options.requestTimeout = setup.timings.requestTimeout;
    setup.transport = std::make_shared<JXCurlTransport>(options);
  }
  return setup;
}

// Otherwise the last owner would close curl's connections on the abandoned thread.
void keepForever(std::shared_ptr<JXTransfer> transfer) {
  static std::mutex mutex;
  static auto* const kept = new std::vector<std::shared_ptr<JXTransfer>>();
  const std::lock_guard<std::mutex> lock(mutex);
  kept->push_back(std::move(transfer));
}

}  // namespace

JXTransfer::JXTransfer(JXTransferSetup setup)
    : loop_(completed(std::move(setup))),
      mailbox_([transport = loop_.setup().transport.get()] { transport->wakeUp(); }) {}

void JXTransfer::start() {
  JXForkedChild::watch();
  const JXSignalsBlocked blockedInTheNewThread;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (stopped_ || thread_.joinable()) return;
  mustStart_.store(true);
  thread_ = std::thread([self = shared_from_this()] { self->run(); });
  mustStart_.store(false);
}

void JXTransfer::startAgain() noexcept {
  try {
    start();
  } catch (...) {
    // The next request tries again. This one is stored.
  }
}

void JXTransfer::run() noexcept {
  threadId_.store(std::this_thread::get_id());
  while (runOnce()) {
  }
  endLoop();
}

// Returns false when the thread must end.
bool JXTransfer::runOnce() noexcept {
  try {
    // In this order: a reported request has a smaller ID, and was added before the commands were
    // read. One that is added in between is reported to the next iteration.
    const bool added = mailbox_.readAdded();
    const std::uint64_t before = setup().outbox->nextId();
    const JXTransferCommands commands = mailbox_.readCommands();
    if (commands.stop) return false;
    loop_.apply(commands, added, before);
    resumeTransport(commands);
    const JXTransferWait wait = loop_.act();
    notifyFlushers();
    if (isAbandoned()) return false;
    const bool mayWait = mailbox_.prepareToSleep(wait.ignoresAdditions);
    std::vector<JXHttpResult> results = loop_.poll(wait, mayWait);
    mailbox_.awake();
    if (isAbandoned()) return false;
    loop_.complete(std::move(results));
    hasFailed_ = false;
  } catch (const std::exception& error) {
    if (!recover(error.what())) return false;
  } catch (...) {
    if (!recover("unknown error")) return false;
  }
  notifyFlushers();
  return true;
}

// Resumes the transport after the requests of before a suspension were aborted, unless it was
// suspended again in the meantime.
void JXTransfer::resumeTransport(const JXTransferCommands& applied) {
  if (applied.suspensions == endedSuspensions_) return;
  mailbox_.withCommands([&](const JXTransferCommands& current) {
    if (current.suspensions != applied.suspensions) return;
    setup().transport->resume();
    endedSuspensions_ = applied.suspensions;
  });
}

// Returns false when the thread was abandoned and must not use the transport any more.
bool JXTransfer::recover(const char* error) noexcept {
  mailbox_.awake();
  if (isAbandoned()) return false;
  loop_.recover(error);
  // Without this delay, a transport that fails in every `poll` would keep the thread busy.
  if (std::exchange(hasFailed_, true)) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_for(lock, kDelayAfterFailures, [this] { return stopped_; });
  }
  return true;
}

void JXTransfer::endLoop() noexcept {
  // Too late: the process may be exiting, with curl's libraries already cleaned up.
  if (isAbandoned()) return;
  try {
    loop_.end();
  } catch (...) {
    // The requests are in the outbox anyway.
  }
  const std::lock_guard<std::mutex> lock(mutex_);
  ended_ = true;
  changed_.notify_all();
}

bool JXTransfer::isAbandoned() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  return abandoned_;
}

void JXTransfer::notifyFlushers() {
  // They wait only for the empty queue; waking them per request would cost more than sending it.
  if (flushing_.load() == 0 || !queueIsEmpty()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  changed_.notify_all();
}

void JXTransfer::enqueue(std::string_view url, std::string_view body, const JXRequestOrigin& origin,
                         bool awaitsDecision) {
  if (mustStart_.load()) startAgain();
  if (setup().outbox->add(url, body, origin, awaitsDecision)) {
    mailbox_.notifyAdded();
  } else if (setup().onDelivery) {
    mailbox_.send([](JXTransferCommands& commands) { ++commands.rejectedByQueue; });
  }
}

void JXTransfer::dropOutOfMemory(std::string_view body) {
  setup().outbox->dropOutOfMemory(body);
  mailbox_.send([](JXTransferCommands& commands) { ++commands.rejectedByQueue; });
}

void JXTransfer::storageChanged() {
  mailbox_.send([](JXTransferCommands& commands) { ++commands.storageChanges; });
}

void JXTransfer::setFilter(std::shared_ptr<const JXSendFilter> filter, bool isConsentMissing) {
  mailbox_.send([&](JXTransferCommands& commands) {
    commands.filter = std::move(filter);
    commands.isConsentMissing = isConsentMissing;
  });
}

// Suspends the transport and sends the command under one lock, so that the thread does not resume
// the transport before it has the new filter.
void JXTransfer::stopSending(std::shared_ptr<const JXSendFilter> filter, bool isConsentMissing) {
  mailbox_.send([&](JXTransferCommands& commands) {
    setup().transport->suspend();
    ++commands.suspensions;
    commands.filter = std::move(filter);
    commands.isConsentMissing = isConsentMissing;
  });
}

void JXTransfer::setInBackground(bool inBackground) {
  const std::uint64_t next = setup().outbox->nextId();
  mailbox_.send([inBackground, next](JXTransferCommands& commands) {
    if (inBackground && !commands.inBackground) commands.backgroundFrom = next;
    commands.inBackground = inBackground;
  });
}

void JXTransfer::pauseForUserAgent() {
  const SteadyTime until = setup().steadyNow() + boundedWait(setup().timings.userAgentWait);
  mailbox_.send([until](JXTransferCommands& commands) { commands.pausedUntil = until; });
}

void JXTransfer::userAgentKnown() {
  mailbox_.send([](JXTransferCommands& commands) { commands.pausedUntil.reset(); });
}

bool JXTransfer::flush(milliseconds deadline) {
  // The deadline uses the real clock, because the application waits, not the plan.
  const SteadyTime until = std::chrono::steady_clock::now() + boundedWait(deadline);
  if (queueIsEmpty()) return true;
  if (isOnThread()) return false;
  ++flushing_;
  mailbox_.send([](JXTransferCommands& commands) { ++commands.flushes; });
  std::unique_lock<std::mutex> lock(mutex_);
  const bool empty = changed_.wait_until(lock, until, [this] { return queueIsEmpty(); });
  --flushing_;
  return empty;
}

void JXTransfer::purge() {
  setup().outbox->purge();
  abortPurged();
}

void JXTransfer::applyErasures() {
  setup().outbox->applyErasures();
  abortPurged();
}

// The queue does not contain the purged requests any more, so only those in flight can be sent.
void JXTransfer::abortPurged() {
  mailbox_.send([this](JXTransferCommands& commands) {
    setup().transport->suspend();
    ++commands.suspensions;
    ++commands.purges;
  });
  notifyFlushers();
}

JXDeliveryCounters JXTransfer::counters() const {
  const JXTransferCommands commands = mailbox_.commands();
  JXDeliveryCounters counters;
  counters.outbox = setup().outbox->counters();
  counters.attempts = loop_.attempts();
  counters.failures = loop_.failures();
  counters.paused = commands.isConsentMissing || commands.inBackground ||
                    (commands.pausedUntil && setup().steadyNow() < *commands.pausedUntil);
  return counters;
}

bool JXTransfer::stop(milliseconds limit) {
  if (JXForkedChild::isCurrent()) return false;
  const SteadyTime until = std::chrono::steady_clock::now() + boundedWait(limit);
  mailbox_.send([](JXTransferCommands& commands) { commands.stop = true; });
  {
    std::unique_lock<std::mutex> lock(mutex_);
    if (stopped_) return ended_;
    stopped_ = true;
    changed_.notify_all();
    if (!thread_.joinable()) ended_ = true;  // it was never started
    if (!isOnThread()) changed_.wait_until(lock, until, [this] { return ended_; });
    abandoned_ = !ended_;
  }
  if (!thread_.joinable()) return true;
  if (!abandoned_) {
    thread_.join();
    return true;
  }
  thread_.detach();
  keepForever(shared_from_this());
  return false;
}

}  // namespace jx
