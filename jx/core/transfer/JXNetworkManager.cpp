// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXNetworkManager.h"

#include <cstdlib>
#include <exception>
#include <string>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/transfer/JXTransfer.h"

namespace jx {
namespace {

constexpr int kAlwaysEnabled = 1;
constexpr int kDisabledByDefault = 2;

// The transfer of the manager; never destroyed. Read without a lock, because a forked child that
// exits would wait forever for a lock that was owned during the fork.
JXTransfer* stoppedAtExit = nullptr;

// Catches and logs all exceptions, because the caller is an application thread. `failure` is the
// log message without cause and consequence.
template <class Operation>
void guarded(const char* failure, const char* consequence, Operation&& operation) noexcept {
  try {
    operation();
  } catch (const std::exception& error) {
    JXLogger::sharedInstance().logMessage_withLevel(
        std::string(failure) + ": " + error.what() + "; " + consequence, 3);
  } catch (...) {
    JXLogger::sharedInstance().logMessage_withLevel(failure, 3);
  }
}

}  // namespace

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
  const std::lock_guard<std::mutex> lock(mutex_);
  managerState_ = state == kAlwaysEnabled || state == kDisabledByDefault ? state : 0;
  applyEnabled(managerState_ != kDisabledByDefault);
}

int JXNetworkManager::managerState() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return managerState_;
}

void JXNetworkManager::changingSDKBehaviour(bool enabled) {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!enabled && managerState_ == kAlwaysEnabled) return;
  applyEnabled(enabled);
}

void JXNetworkManager::applyEnabled(bool enabled) {
  enabled_ = enabled;
  decided_ = true;
  guarded("Enabling or disabling delivery failed", "delivery state unchanged", [&] {
    if (transfer_) transfer_->setDisabled(!enabled);
  });
}

void JXNetworkManager::applyBackground() {
  guarded("Applying the background state failed", "delivery state unchanged", [&] {
    if (transfer_) transfer_->setInBackground(inBackground_ && !runsInBackground_);
  });
}

void JXNetworkManager::waitForUserAgent() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    awaitsUserAgent_ = true;
  }
  requestAwaitedUserAgent();
}

// Delivery is paused before the request, because the platform may call back immediately. A dry run
// has no transfer.
void JXNetworkManager::requestAwaitedUserAgent() {
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
  const std::lock_guard<std::mutex> lock(mutex_);
  runsInBackground_ = enabled;
  applyBackground();
}

void JXNetworkManager::enqueue(std::string_view url, std::string_view body) {
  guarded("Queuing a request failed", "request lost",
          withTransfer([&](JXTransfer& transfer) { transfer.enqueue(url, body); }));
}

void JXNetworkManager::onBackground() {
  const std::lock_guard<std::mutex> lock(mutex_);
  inBackground_ = true;
  applyBackground();
}

void JXNetworkManager::onForeground() {
  const std::lock_guard<std::mutex> lock(mutex_);
  inBackground_ = false;
  applyBackground();
}

bool JXNetworkManager::flush(std::chrono::milliseconds deadline) {
  bool isEmpty = true;
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
    const std::lock_guard<std::mutex> lock(mutex_);
    if (transfer_) return;
    requestUserAgent_ = setup.requestUserAgent;
    auto transfer = std::make_shared<JXTransfer>(std::move(setup));
    if (awaitsUserAgent_ && requestUserAgent_) transfer->pauseForUserAgent();
    if (decided_) transfer->setDisabled(!enabled_);
    transfer->setInBackground(inBackground_ && !runsInBackground_);
    transfer->start();
    transfer_ = std::move(transfer);
    // Registered after libcurl and its dependencies were initialised above, so that the thread ends
    // before they are cleaned up.
    stoppedAtExit = transfer_.get();
    std::atexit([] {
      guarded("Stopping the transfer thread failed", "process exit continues",
              [] { stoppedAtExit->stop(JXTransfer::kStopLimit); });
    });
  });
}

void JXNetworkManager::startDryRun(
    std::function<void(std::function<void()> known)> requestUserAgent) {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!transfer_ && !requestUserAgent_) requestUserAgent_ = std::move(requestUserAgent);
}

}  // namespace jx
