// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/LoadedSide.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "tests/soak/SocketWrites.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;

// Long enough that the transfer thread never waits for the next event.
constexpr std::uint64_t kLongestQueue = 200;

// Destroyed after the exit handler of the library, which was registered later.
const test::TemporaryFolder& storage() {
  static const test::TemporaryFolder folder;
  return folder;
}

}  // namespace

LoadedSide::LoadedSide(const LoadOptions& options) : folder_(storage()), server_(options.tls) {
  socketwrites::watchPort(server_.port());
  JXCoreConfiguration configuration;
  configuration.storageFolder = folder_.path();
  configuration.collectionHost = server_.host();
  if (options.tls) configuration.caFile = server_.caFile();
  configuration.proxy = "";
  configuration.onDelivery = options.onDelivery;
  configuration.outboxBounds.maxRequests = 10'000'000;
  configuration.outboxBounds.maxBytes = std::uint64_t{8} << 30;
  configuration.retryTimings.initialBackoff = milliseconds(1);
  configuration.retryTimings.maxBackoff = milliseconds(10);
  configuration.retryTimings.syncDelay = options.syncDelay;
  JXCoreConfiguration::set(configuration);
  JXNotificationCenter::defaultCenter()->addObserver(this, kJXNotification_HTTPRequest,
                                                     [this](const JXNotification&) { ++posted_; });
  serverSide_ = ServerSide::initWithSiteID_andSourceKey(1, "key");
}

LoadedSide::~LoadedSide() {
  endLoad();
  JXNotificationCenter::defaultCenter()->removeObserver(this);
}

void LoadedSide::startLoad(int threads) {
  isEnding_ = false;
  for (int i = 0; i < threads; ++i) {
    threads_.emplace_back([this] {
      while (!isEnding_) {
        const bool isStopped = serverSide_->serverSideState() == EJXServerSideState_DISABLED;
        if (isStopped || queued() >= kLongestQueue) {
          std::this_thread::sleep_for(milliseconds(1));
        } else {
          execute();
        }
      }
    });
  }
}

void LoadedSide::endLoad() {
  isEnding_ = true;
  for (std::thread& thread : threads_)
    thread.join();
  threads_.clear();
}

void LoadedSide::execute() const { serverSide_->execute(JXCustomEvent::initWithName("load")); }

std::uint64_t LoadedSide::queued() {
  return JXNetworkManager::sharedInstance().counters().outbox.queued;
}

bool LoadedSide::hasMark() const {
  std::error_code error;
  const std::filesystem::directory_iterator files(folder_.path("outbox"), error);
  return std::any_of(begin(files), end(files), [](const std::filesystem::directory_entry& file) {
    return file.path().filename().string().rfind("stopped-", 0) == 0;
  });
}

void waitUntil(const std::function<bool()>& condition, const std::string& what) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) throw std::runtime_error(what);
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
}

}  // namespace jx::soak
