// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplaySession.h"

#include <algorithm>
#include <limits>

namespace jx {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Maximum duration of one flush() before cancellation is checked.
constexpr milliseconds kSlice{100};

// Half of the queue limits, above which the library drops the oldest requests.
constexpr std::uint64_t kManyRequests = 5'000;
constexpr std::uint64_t kManyBytes = 16u * 1024 * 1024;

bool isHalfFull(const JXDeliveryCounters& counters) {
  return counters.outbox.queued > kManyRequests || counters.outbox.queuedBytes > kManyBytes;
}

JXString nullIfEmpty(const std::string& text) { return text.empty() ? JXString() : JXString(text); }

}  // namespace

ReplaySession::ReplaySession(const ReplaySettings& settings)
    : sends_(!settings.collectionAddress.empty()) {
  if (settings.startMs) clock_ = std::make_shared<JXManualClock>(*settings.startMs);
  JXCoreConfiguration configuration;
  configuration.storageFolder = settings.stateFolder.string();
  configuration.collectionHost = nullIfEmpty(settings.collectionAddress);
  configuration.caFile = nullIfEmpty(settings.caFile);
  configuration.logSink = settings.logSink;
  configuration.logLevel = settings.logLevel;
  configuration.dryRun = !sends_;
  if (settings.versionName) configuration.bundle.shortVersion = *settings.versionName;
  configuration.clock = clock_;
  JXCoreConfiguration::set(configuration);
  if (settings.onBody) {
    JXNotificationCenter::defaultCenter()->addObserver(
        this, kJXNotification_HTTPRequest,
        [onBody = settings.onBody](const JXNotification& notification) {
          const JXString body = notification.userInfo.get(kJXUserInfo_POSTData).string();
          onBody(body.view());
        });
  }
  serverSide_ = ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
      settings.siteID, settings.sourceKey, settings.behaviour);
}

ReplaySession::~ReplaySession() { JXNotificationCenter::defaultCenter()->removeObserver(this); }

Done ReplaySession::run(const ScriptCommand& command, const std::function<bool()>& isCancelled) {
  if (const auto* const event = std::get_if<ScriptEvent>(&command)) {
    execute(event->event, isCancelled);
  } else if (const auto* const step = std::get_if<ScriptAdvance>(&command)) {
    return advance(step->ms);
  } else if (const auto* const permanent = std::get_if<ScriptPermanent>(&command)) {
    serverSide_->addPermanentData_withValue(permanent->key, permanent->value);
  } else if (const auto* const forgotten = std::get_if<ScriptForget>(&command)) {
    serverSide_->removePermanentData(forgotten->key);
  } else if (const auto* const action = std::get_if<ScriptAct>(&command)) {
    act(*action);
  }
  return done();
}

Done ReplaySession::advance(std::int64_t ms) {
  if (!clock_) return Error{"advance requires the option --at"};
  const std::int64_t now = clock_->nowMs();
  using Limits = std::numeric_limits<std::int64_t>;
  if (ms > 0 ? now > Limits::max() - ms : now < Limits::min() - ms) {
    return Error{"ms must not move the clock out of its range"};
  }
  clock_->advance(ms);
  return done();
}

void ReplaySession::execute(const std::shared_ptr<JXEvent>& event,
                            const std::function<bool()>& isCancelled) {
  if (sends_) waitForQueue(isCancelled);
  if (isDisabled()) ++ignored_;
  ++executed_;
  serverSide_->execute(event);
}

void ReplaySession::act(ScriptAct act) {
  switch (act) {
    case ScriptAct::Background:
      return JXApplication::applicationDidEnterBackground();
    case ScriptAct::Foreground:
      return JXApplication::applicationWillEnterForeground();
    case ScriptAct::Enable:
      return serverSide_->enableServerSide();
    case ScriptAct::Disable:
      return serverSide_->disableServerSide();
  }
}

void ReplaySession::waitForQueue(const std::function<bool()>& isCancelled) {
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  for (;;) {
    const JXDeliveryCounters counters = manager.counters();
    const std::uint64_t completed = counters.outbox.delivered + counters.outbox.rejected;
    if (!isHalfFull(counters) || counters.paused || stalledAt_ == completed || isCancelled())
      return;
    stalledAt_.reset();
    manager.flush(kSlice);
    const JXDeliveryCounters after = manager.counters();
    if (after.outbox.delivered + after.outbox.rejected == completed) stalledAt_ = completed;
  }
}

void ReplaySession::waitForDelivery(milliseconds limit, const std::function<bool()>& isCancelled) {
  if (!sends_) return;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  const steady_clock::time_point end = steady_clock::now() + limit;
  do {
    const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now());
    if (manager.flush(std::clamp(left, milliseconds::zero(), kSlice))) return;
  } while (steady_clock::now() < end && !isDeliveryBlocked(manager.counters()) && !isCancelled());
}

// Requests in flight are completed when the application enters the background; without consent they
// are aborted.
bool ReplaySession::isDeliveryBlocked(const JXDeliveryCounters& counters) const {
  if (!counters.paused) return false;
  const std::uint64_t finished =
      counters.failures + counters.outbox.delivered + counters.outbox.rejected;
  return isDisabled() || counters.attempts <= finished;
}

ReplayTally ReplaySession::tally() const {
  ReplayTally tally;
  tally.executed = executed_;
  tally.ignored = ignored_;
  tally.sends = sends_;
  if (sends_) tally.counters = JXNetworkManager::sharedInstance().counters();
  return tally;
}

bool ReplaySession::isDisabled() const {
  return serverSide_->serverSideState() == EJXServerSideState_DISABLED;
}

}  // namespace jx
