// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "jx/c/jx_delivery.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/storage/JXEventId.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/ServerSide.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/memory/FailingMemory.h"
#include "tests/memory/FailingThreads.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

using test::Failing;
using test::FailingMemory;

// Responds to each request with 200.
class Server : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    ids.add(eventIdOf(request.body).toStdString());
    JXHttpResult result;
    result.request = std::move(request);
    result.outcome.status = 200;
    results_.push_back(std::move(result));
  }
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto isDue = [this] { return isWoken_ || !results_.empty(); };
    changed_.wait_for(lock, timeout.value_or(std::chrono::hours(1)), isDue);
    isWoken_ = false;
    return std::exchange(results_, {});
  }
  void wakeUp() noexcept override {
    const std::lock_guard<std::mutex> lock(mutex_);
    isWoken_ = true;
    changed_.notify_all();
  }
  void abortAll() noexcept override {}

  test::JXCollected<std::string> ids;

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<JXHttpResult> results_;
  bool isWoken_ = false;
};

class ServerSideMemory : public ::testing::TestWithParam<Failing> {
 protected:
  ServerSideMemory() {
    JXCoreConfiguration configuration;
    configuration.platform = std::make_shared<test::JXFakePlatform>();
    configuration.storageFolder = storage().path();
    configuration.collectionHost = "http://127.0.0.1:1";
    configuration.transport = server_;
    configuration.logLevel = 3;
    configuration.logSink = [log = log_](int level, std::string_view message) {
      log->add(std::to_string(level) + " " + std::string(message));
    };
    configuration.onDelivery = [deliveries = deliveries_](const JXDelivery& delivery) {
      deliveries->add(delivery);
    };
    EXPECT_TRUE(JXCoreConfiguration::set(configuration));
  }

  // Removed when the process exits, after the library has stopped.
  static const test::TemporaryFolder& storage() {
    static const test::TemporaryFolder folder;
    return folder;
  }

  std::size_t logged(const std::string& part) const {
    std::size_t count = 0;
    for (const std::string& line : log_->all())
      count += line.find(part) != std::string::npos ? 1 : 0;
    return count;
  }

  std::shared_ptr<Server> server_ = std::make_shared<Server>();
  std::shared_ptr<test::JXCollected<JXDelivery>> deliveries_ =
      std::make_shared<test::JXCollected<JXDelivery>>();
  std::shared_ptr<test::JXCollected<std::string>> log_ =
      std::make_shared<test::JXCollected<std::string>>();
};

INSTANTIATE_TEST_SUITE_P(Failing, ServerSideMemory,
                         ::testing::Values(Failing::OnlyOne, Failing::AllLater));

TEST_P(ServerSideMemory, DeliversOrReportsEachEventAtEachFailingAllocation) {
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
  std::size_t executed = 0;
  std::size_t succeeding = 0;
  for (bool hasFailed = true; hasFailed && succeeding < 20'000; ++succeeding) {
    const auto event = JXCustomEvent::initWithName("first");
    const auto next = JXCustomEvent::initWithName("next");
    {
      const FailingMemory memory(succeeding, GetParam());
      serverSide->execute(event);
      hasFailed = memory.hasFailed();
    }
    serverSide->execute(next);
    executed += 2;
  }
  ASSERT_GE(succeeding, 2u);
  ASSERT_TRUE(deliveries_->waitFor(executed));
  ASSERT_TRUE(JXNetworkManager::sharedInstance().flush(std::chrono::seconds(20)));
  std::set<std::string> delivered;
  std::size_t dropped = 0;
  for (const JXDelivery& delivery : deliveries_->all()) {
    if (delivery.outcome == JXDeliveryOutcome::Delivered) {
      EXPECT_TRUE(delivered.insert(delivery.eventId.toStdString()).second);
    } else {
      EXPECT_EQ(delivery.dropReason, JXDropReason::OutOfMemory);
      EXPECT_EQ(delivery.reason, JXString("out of memory"));
      ++dropped;
    }
  }
  EXPECT_EQ(deliveries_->all().size(), executed);
  EXPECT_EQ(delivered.size() + dropped, executed);
  EXPECT_GE(delivered.size(), executed / 2 + 1);
  EXPECT_GT(dropped, 0u);
  EXPECT_EQ(server_->ids.all().size(), delivered.size());
  const JXOutboxCounters counters = JXNetworkManager::sharedInstance().counters().outbox;
  EXPECT_EQ(counters.added, delivered.size());
  EXPECT_EQ(counters.droppedOutOfMemory, dropped);
  jx_counters inC{};
  EXPECT_EQ(jx_counters_get(&inC, sizeof inC), JX_OK);
  EXPECT_EQ(inC.dropped_out_of_memory, dropped);
  // A program that does not know the counter.
  jx_counters shorter{};
  EXPECT_EQ(jx_counters_get(&shorter, offsetof(jx_counters, dropped_out_of_memory)), JX_OK);
  EXPECT_EQ(shorter.added, delivered.size());
  EXPECT_EQ(shorter.dropped_out_of_memory, 0u);
  EXPECT_EQ(logged("execute() failed"), 0u);
  EXPECT_GE(logged("cannot queue an event: out of memory; event dropped"), 1u);
  EXPECT_LT(logged("cannot queue an event: out of memory; event dropped"), dropped);
}

TEST_P(ServerSideMemory, StopsAtEachFailingAllocation) {
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  std::size_t rounds = 0;
  for (bool hasFailed = true; hasFailed && rounds < 1'000; ++rounds) {
    {
      const FailingMemory memory(rounds, GetParam());
      manager.decide(false);
      hasFailed = memory.hasFailed();
    }
    EXPECT_TRUE(manager.counters().paused) << rounds;
    serverSide->execute(JXCustomEvent::initWithName("held"));
    EXPECT_FALSE(manager.flush(std::chrono::milliseconds(1)));
    EXPECT_EQ(server_->ids.all().size(), rounds);
    manager.decide(true);
    ASSERT_TRUE(deliveries_->waitFor(rounds + 1));
  }
  EXPECT_GE(rounds, 3u);
}

TEST_F(ServerSideMemory, DestroysAServerSideWithoutMemory) {
  auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
  {
    const FailingMemory memory(0, Failing::AllLater);
    serverSide.reset();
  }
  ServerSide::initWithSiteID_andSourceKey(1, "key")->execute(JXCustomEvent::initWithName("next"));
  EXPECT_TRUE(deliveries_->waitFor(1));
}

TEST_F(ServerSideMemory, SendsEventsWhenTheThreadCanBeCreatedLater) {
  std::shared_ptr<ServerSide> serverSide;
  {
    const test::FailingThreads threads;
    serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
    serverSide->execute(JXCustomEvent::initWithName("first"));
    EXPECT_GE(threads.failures(), 2);
  }
  EXPECT_EQ(JXNetworkManager::sharedInstance().counters().outbox.queued, 1u);
  EXPECT_EQ(logged("3 Creating the transfer thread failed: "), 1u);
  serverSide->execute(JXCustomEvent::initWithName("second"));
  EXPECT_TRUE(deliveries_->waitFor(2));
  EXPECT_EQ(server_->ids.all().size(), 2u);
}

}  // namespace
}  // namespace jx
