// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXNetworkManager.h"

#include <cstdlib>
#include <exception>
#include <string>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/transfer/JXTransfer.h"
#include "jx/core/transfer/JXTransferSetup.h"

namespace jx {
namespace {

constexpr int kAlwaysEnabled = 1;
constexpr int kDisabledByDefault = 2;

// The transfer of the one manager, which is never destroyed. Read without a lock, since a forked
// child that exits would wait for ever for one that was held during the fork.
JXTransfer* stoppedAtExit = nullptr;

// Not one of these operations lets an exception out: a host's thread stands above them.
template <class Operation>
void guarded(const char* name, Operation&& operation) noexcept {
  try {
    operation();
  } catch (const std::exception& failure) {
    JXLogger::sharedInstance().logMessage_withLevel(
        std::string("Network manager, ") + name + ": " + failure.what(), 3);
  } catch (...) {
    JXLogger::sharedInstance().logMessage_withLevel(name, 3);
  }
}

}  // namespace

JXNetworkManager& JXNetworkManager::sharedInstance() {
  // Never destroyed: threads may use it while the process ends.
  static JXNetworkManager* const instance = new JXNetworkManager();
  return *instance;
}

std::shared_ptr<JXTransfer> JXNetworkManager::transfer() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return transfer_;
}

void JXNetworkManager::setManagerState(int state) {
  const std::lock_guard<std::mutex> lock(mutex_);
  managerState_ = state == kAlwaysEnabled || state == kDisabledByDefault ? state : 0;
  decide(managerState_ != kDisabledByDefault);
}

int JXNetworkManager::managerState() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return managerState_;
}

void JXNetworkManager::changingSDKBehaviour(bool enabled) {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!enabled && managerState_ == kAlwaysEnabled) return;
  decide(enabled);
}

void JXNetworkManager::decide(bool enabled) {
  enabled_ = enabled;
  decided_ = true;
  guarded("enabling", [&] {
    if (transfer_) transfer_->setDisabled(!enabled);
  });
}

void JXNetworkManager::applyBackground() {
  guarded("background", [&] {
    if (transfer_) transfer_->setInBackground(inBackground_ && !runsInBackground_);
  });
}

void JXNetworkManager::waitForUserAgent() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    waitsForUserAgent_ = true;
    if (!transfer_ || !requestUserAgent_) return;
  }
  askForUserAgent();
}

// The hold is set before the question, since the platform may answer at once.
void JXNetworkManager::askForUserAgent() {
  guarded("user agent", [&] {
    std::shared_ptr<JXTransfer> transfer = this->transfer();
    transfer->holdForUserAgent();
    try {
      requestUserAgent_([transfer] { guarded("user agent", [&] { transfer->userAgentKnown(); }); });
    } catch (...) {
      transfer->userAgentKnown();
      throw;
    }
  });
}

void JXNetworkManager::enableRunningInBackground() {
  const std::lock_guard<std::mutex> lock(mutex_);
  runsInBackground_ = true;
  applyBackground();
}

void JXNetworkManager::enqueue(std::string_view url, std::string_view body) {
  guarded("enqueue", [&] {
    if (const std::shared_ptr<JXTransfer> transfer = this->transfer()) transfer->enqueue(url, body);
  });
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
  guarded("flush", [&] {
    const std::shared_ptr<JXTransfer> transfer = this->transfer();
    if (!transfer) return;
    isEmpty = false;
    isEmpty = transfer->flush(deadline);
  });
  return isEmpty;
}

void JXNetworkManager::purge() {
  guarded("purge", [&] {
    if (const std::shared_ptr<JXTransfer> transfer = this->transfer()) transfer->purge();
  });
}

void JXNetworkManager::storageChanged() {
  guarded("storage change", [&] {
    if (const std::shared_ptr<JXTransfer> transfer = this->transfer()) transfer->storageChanged();
  });
}

JXDeliveryCounters JXNetworkManager::counters() const {
  JXDeliveryCounters counters;
  guarded("counters", [&] {
    if (const std::shared_ptr<JXTransfer> transfer = this->transfer()) {
      counters = transfer->counters();
    }
  });
  return counters;
}

void JXNetworkManager::start(JXTransferSetup setup) {
  guarded("start", [&] {
    bool asksForUserAgent = false;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      if (transfer_) return;
      requestUserAgent_ = setup.requestUserAgent;
      auto transfer = std::make_shared<JXTransfer>(std::move(setup));
      asksForUserAgent = waitsForUserAgent_ && requestUserAgent_;
      if (asksForUserAgent) transfer->holdForUserAgent();
      if (decided_) transfer->setDisabled(!enabled_);
      transfer->setInBackground(inBackground_ && !runsInBackground_);
      transfer->start();
      transfer_ = std::move(transfer);
      // After libcurl and what it uses were initialised above, so that the thread ends before they
      // are torn down.
      stoppedAtExit = transfer_.get();
      std::atexit([] { guarded("end", [] { stoppedAtExit->stop(JXTransfer::kStopLimit); }); });
    }
    if (asksForUserAgent) askForUserAgent();
  });
}

}  // namespace jx
