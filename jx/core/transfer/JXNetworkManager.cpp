// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXNetworkManager.h"

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXExceptionLog.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXLogger.h"
#include "jx/core/transfer/JXConsentGate.h"
#include "jx/core/transfer/JXCurlLibrary.h"
#include "jx/core/transfer/JXTransfer.h"

namespace jx {
namespace {

constexpr int kAlwaysEnabled = 1;
constexpr int kDisabledByDefault = 2;
// A stop waits until its record survives a killed process, but not for a disk that hangs.
constexpr std::chrono::milliseconds kRecordLimit{5};

// The transfer of the manager; never destroyed.
JXTransfer* stoppedAtExit = nullptr;

bool isIgnored() { return JXForkedChild::ignores("JXNetworkManager"); }

// Catches and logs all exceptions, because the caller is an application thread. `failure` is the
// log message without cause and consequence. Does nothing in a forked child.
template <class Operation>
void guarded(const char* failure, const char* consequence, Operation&& operation) noexcept {
  if (isIgnored()) return;
  try {
    operation();
  } catch (...) {
    logException(failure, consequence);
  }
}

}  // namespace

JXNetworkManager::JXNetworkManager()
    : consent_(std::make_unique<JXConsentGate>()),
      nothing_(std::make_shared<const JXSendFilter>(true, std::vector<JXSendFilter::Rule>(),
                                                    std::vector<JXStopMark>(), false, false)) {}

JXNetworkManager& JXNetworkManager::sharedInstance() {
  // Never destroyed: threads may use it while the process exits.
  static JXNetworkManager* const instance = new JXNetworkManager();
  return *instance;
}

std::shared_ptr<JXTransfer> JXNetworkManager::transfer() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return transfer_;
}

// Returns a function that calls `operation` without the lock, unless there is no transfer.
template <class Operation>
auto JXNetworkManager::withTransfer(Operation operation) const {
  return [this, operation] {
    if (const std::shared_ptr<JXTransfer> transfer = this->transfer()) operation(*transfer);
  };
}

void JXNetworkManager::setManagerState(int state) {
  if (isIgnored()) return;
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  managerState_ = state == kAlwaysEnabled || state == kDisabledByDefault ? state : 0;
  ignoresStops_ = managerState_ == kAlwaysEnabled;
  const bool stops = managerState_ == kDisabledByDefault;
  if (stops) {
    consent_->stop(false);
  } else {
    consent_->release();
  }
  applyConsent(stops);
}

int JXNetworkManager::managerState() const {
  if (isIgnored()) return 0;
  const std::lock_guard<std::mutex> lock(mutex_);
  return managerState_;
}

std::uint64_t JXNetworkManager::decide(bool enabled) {
  if (isIgnored()) return 0;
  if (enabled) beginStoring();
  std::shared_ptr<JXStopMarks> stopMarks;
  std::uint64_t decision = 0;
  {
    const JXLogDeferral deferral;
    const std::lock_guard<std::mutex> lock(mutex_);
    decision = ++decisions_;
    if (!enabled && ignoresStops_) return decision;
    if (enabled) {
      consent_->enable();
    } else {
      // Sending stops even if memory is exhausted.
      guarded("Recording the stop failed", "the decision holds in this process only",
              [this] { consent_->stop(true); });
      stopMarks = stopMarks_;
    }
    applyConsent(!enabled);
  }
  if (stopMarks) stopMarks->wait(kRecordLimit);
  return decision;
}

// The viewer has consented: from here on, data may be stored. Reads the recorded stops if they were
// not read at the start.
void JXNetworkManager::beginStoring() {
  guarded("Opening the storage after the consent failed", "nothing is stored", [&] {
    std::function<void()> begin;
    std::shared_ptr<JXStopMarks> stopMarks;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      begin = beginStoring_;
      if (!hasMarks_) stopMarks = stopMarks_;
    }
    if (!begin) return;
    begin();
    if (!stopMarks) return;
    // Without the lock, because a stop on another thread must not wait for the disk.
    bool areComplete = true;
    std::vector<JXStopMark> marks = stopMarks->read(areComplete);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!std::exchange(hasMarks_, true)) consent_->setMarks(std::move(marks), areComplete);
  });
}

// If memory is exhausted, returns a filter that holds every request to which stops apply.
std::shared_ptr<const JXSendFilter> JXNetworkManager::stoppedFilter() const noexcept {
  try {
    return consent_->filter();
  } catch (...) {
    return nothing_;
  }
}

// Passes the decisions to the transfer; the mutex is locked.
void JXNetworkManager::applyConsent(bool stops) {
  if (!transfer_) return;
  if (stops) {
    transfer_->stopSending(stoppedFilter(), consent_->isPaused());
  } else {
    guarded("Enabling or disabling delivery failed", "delivery state unchanged",
            [&] { transfer_->setFilter(consent_->filter(), consent_->isPaused()); });
  }
  guarded("Recording the stop failed", "the decision holds in this process only", [&] {
    for (const JXStopMark& mark : consent_->takeChangedMarks()) {
      if (stopMarks_) stopMarks_->set(mark);
    }
  });
}

std::uint16_t JXNetworkManager::mostStops(std::string_view url) const {
  const std::shared_ptr<JXTransfer> transfer = this->transfer();
  return transfer ? transfer->mostStops(JXSendFilter::sourceOf(url)) : std::uint16_t{0};
}

void JXNetworkManager::serverSideStarted(const void* serverSide, std::string_view url,
                                         JXStartState state) {
  guarded("Registering a ServerSide failed", "its earlier events are held", [&] {
    if (state == JXStartState::Enabled || state == JXStartState::AlwaysEnabled) beginStoring();
    const std::uint16_t stops = mostStops(url);
    const JXLogDeferral deferral;
    const std::lock_guard<std::mutex> lock(mutex_);
    if (state == JXStartState::AlwaysEnabled) managerState_ = kAlwaysEnabled;
    if (state == JXStartState::Disabled) managerState_ = kDisabledByDefault;
    consent_->started(serverSide, JXSendFilter::sourceOf(url), state, stops);
    applyConsent(false);
  });
}

void JXNetworkManager::serverSideMoved(const void* serverSide, std::string_view url) {
  guarded("Registering the URL of a ServerSide failed", "its earlier events are held", [&] {
    const std::uint16_t stops = mostStops(url);
    const JXLogDeferral deferral;
    const std::lock_guard<std::mutex> lock(mutex_);
    consent_->moved(serverSide, JXSendFilter::sourceOf(url), stops);
    applyConsent(false);
  });
}

void JXNetworkManager::setAlwaysEnabled(const void* serverSide, bool isAlwaysEnabled) {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  consent_->setAlwaysEnabled(serverSide, isAlwaysEnabled);
}

void JXNetworkManager::serverSideEnded(const void* serverSide) {
  if (JXForkedChild::isCurrent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  consent_->ended(serverSide);
}

void JXNetworkManager::applyBackground() {
  guarded("Applying the background state failed", "delivery state unchanged", [&] {
    if (transfer_) transfer_->setInBackground(inBackground_ && !runsInBackground_);
  });
}

void JXNetworkManager::waitForUserAgent() {
  if (isIgnored()) return;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    awaitsUserAgent_ = true;
  }
  requestAwaitedUserAgent();
}

// Delivery is paused before the request, because the platform may call back immediately. A dry run
// has no transfer.
void JXNetworkManager::requestAwaitedUserAgent() {
  if (isIgnored()) return;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!requestUserAgent_ || !std::exchange(awaitsUserAgent_, false)) return;
  }
  guarded("Requesting the user agent failed", "delivery does not wait for it", [&] {
    std::shared_ptr<JXTransfer> transfer = this->transfer();
    if (transfer) transfer->pauseForUserAgent();
    try {
      requestUserAgent_([transfer] {
        guarded("Resuming delivery after the user agent failed",
                "delivery resumes after the wait time", [&] {
                  if (transfer) transfer->userAgentKnown();
                });
      });
    } catch (...) {
      if (transfer) transfer->userAgentKnown();
      throw;
    }
  });
}

void JXNetworkManager::setRunningInBackground(bool enabled) {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  runsInBackground_ = enabled;
  applyBackground();
}

void JXNetworkManager::enqueue(std::string_view url, std::string_view body, const void* sender) {
  guarded("Queuing a request failed", "request lost", [&] {
    std::shared_ptr<JXTransfer> transfer;
    JXConsentGate::Origin origin;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      transfer = transfer_;
      origin = consent_->originOf(sender);
    }
    if (transfer) transfer->enqueue(url, body, origin.stored, origin.awaitsDecision);
  });
}

bool JXNetworkManager::dropOutOfMemory() noexcept {
  const std::shared_ptr<JXTransfer> transfer = isIgnored() ? nullptr : this->transfer();
  if (transfer) transfer->dropOutOfMemory({});
  return transfer != nullptr;
}

void JXNetworkManager::onBackground() {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  inBackground_ = true;
  applyBackground();
}

void JXNetworkManager::onForeground() {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  inBackground_ = false;
  applyBackground();
}

bool JXNetworkManager::flush(std::chrono::milliseconds deadline) {
  bool isEmpty = !JXForkedChild::isCurrent();
  guarded("Flush failed", "requests stay queued", withTransfer([&](JXTransfer& transfer) {
            isEmpty = false;
            isEmpty = transfer.flush(deadline);
          }));
  return isEmpty;
}

void JXNetworkManager::purge() {
  guarded("Purge failed", "requests may stay queued",
          withTransfer([](JXTransfer& transfer) { transfer.purge(); }));
}

void JXNetworkManager::applyErasures() {
  guarded("Dropping the erased requests failed", "requests may stay queued",
          withTransfer([](JXTransfer& transfer) { transfer.applyErasures(); }));
}

void JXNetworkManager::storageChanged() {
  guarded("Scheduling a sync failed", "changes become durable with the next sync",
          withTransfer([](JXTransfer& transfer) { transfer.storageChanged(); }));
}

JXDeliveryCounters JXNetworkManager::counters() const {
  JXDeliveryCounters counters;
  guarded("Reading the delivery counters failed", "counters may be 0",
          withTransfer([&](JXTransfer& transfer) { counters = transfer.counters(); }));
  return counters;
}

void JXNetworkManager::start(JXTransferSetup setup) {
  guarded("Starting the transfer thread failed", "requests are not accepted", [&] {
    std::vector<JXStopMark> marks;
    const bool hasMarks = setup.stopMarks && setup.stopMarks->mayStore();
    bool areComplete = true;
    if (hasMarks) marks = setup.stopMarks->read(areComplete);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (transfer_) return;
    requestUserAgent_ = setup.requestUserAgent;
    stopMarks_ = setup.stopMarks;
    beginStoring_ = setup.beginStoring;
    hasMarks_ = hasMarks;
    consent_->setMarks(std::move(marks), areComplete);
    auto transfer = std::make_shared<JXTransfer>(std::move(setup));
    if (awaitsUserAgent_ && requestUserAgent_) transfer->pauseForUserAgent();
    transfer->setFilter(consent_->filter(), consent_->isPaused());
    transfer->setInBackground(inBackground_ && !runsInBackground_);
    transfer_ = std::move(transfer);
    stoppedAtExit = transfer_.get();
    JXCurlLibrary::atExit([] {
      guarded("Stopping the transfer thread failed", "process exit continues",
              [] { stoppedAtExit->stop(JXTransfer::kStopLimit); });
    });
    guarded("Creating the transfer thread failed", "requests stay queued until it succeeds",
            [this] { transfer_->start(); });
  });
}

void JXNetworkManager::startDryRun(
    std::function<void(std::function<void()> known)> requestUserAgent,
    std::function<void()> beginStoring) {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (transfer_ || requestUserAgent_) return;
  requestUserAgent_ = std::move(requestUserAgent);
  beginStoring_ = std::move(beginStoring);
}

}  // namespace jx
