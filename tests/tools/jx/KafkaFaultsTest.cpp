// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Runs against the mock cluster of librdkafka, not against real brokers.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

#include "tests/tools/jx/KafkaFixture.h"

namespace jx {
namespace {

using std::chrono::milliseconds;
using test::KafkaMockCluster;

class KafkaFaultsTest : public test::KafkaFixture {};

class KafkaBrokerErrorTest : public KafkaFaultsTest,
                             public testing::WithParamInterface<rd_kafka_resp_err_t> {};

TEST_P(KafkaBrokerErrorTest, IsRetriedAndStoresEachEntryOnce) {
  settings_.timeout = milliseconds(60'000);
  // A broker rejects a batch that arrives before the one that failed; the mock cluster stores it,
  // and the producer concludes that the first one is stored too.
  settings_.configuration = {"max.in.flight=1"};
  connect();
  waitUntilReady();
  // Fewer than brokers, so that one is connected all the time.
  cluster_.failNext(KafkaMockCluster::kProduce, 2, GetParam());
  EXPECT_EQ(appendMany(200), 200);
  cluster_.failNext(KafkaMockCluster::kProduce, 1, RD_KAFKA_RESP_ERR_INVALID_REQUIRED_ACKS);
  EXPECT_FALSE(append(entryOf("refused")).isStored) << "the cluster injects errors";
  EXPECT_EQ(storedIds(), eachOnce(200));
}

INSTANTIATE_TEST_SUITE_P(Errors, KafkaBrokerErrorTest,
                         testing::Values(RD_KAFKA_RESP_ERR_NOT_LEADER_FOR_PARTITION,
                                         RD_KAFKA_RESP_ERR_REQUEST_TIMED_OUT,
                                         RD_KAFKA_RESP_ERR_NOT_ENOUGH_REPLICAS,
                                         RD_KAFKA_RESP_ERR_NOT_ENOUGH_REPLICAS_AFTER_APPEND,
                                         RD_KAFKA_RESP_ERR__TRANSPORT),
                         [](const auto& tested) {
                           std::string name = rd_kafka_err2name(tested.param);
                           std::erase(name, '_');
                           return name;
                         });

TEST_F(KafkaFaultsTest, StoresEachEntryOnceWhenABrokerRestarts) {
  settings_.timeout = milliseconds(60'000);
  connect();
  waitUntilReady();
  rd_kafka_mock_broker_set_down(cluster_.get(), 1);
  std::vector<std::future<bool>> results = startMany(200);
  const auto isReported = [](const std::future<bool>& result) {
    return result.wait_for(milliseconds(0)) == std::future_status::ready;
  };
  while (std::none_of(results.begin(), results.end(), isReported))
    std::this_thread::yield();
  EXPECT_FALSE(std::all_of(results.begin(), results.end(), isReported))
      << "the entries of the first broker wait for it";
  rd_kafka_mock_broker_set_up(cluster_.get(), 1);
  EXPECT_EQ(countStored(std::move(results)), 200);
  EXPECT_EQ(storedIds(), eachOnce(200));
}

TEST_F(KafkaFaultsTest, RefusesEntriesUntilABrokerRuns) {
  cluster_.stop();
  connect();
  EXPECT_FALSE(log_->isReady());
  const LogResult result = append(entryOf("refused"));
  EXPECT_EQ(result.error, "not connected");
  EXPECT_EQ(result.cause, LogResult::Cause::Unavailable);
  cluster_.start();
  waitUntilReady();
  EXPECT_EQ(appendMany(1), 1);
  EXPECT_EQ(storedIds(), eachOnce(1));
}

TEST_F(KafkaFaultsTest, StoresEntriesAgainAfterAnOutage) {
  connect();
  waitUntilReady();
  cluster_.stop();
  while (log_->isReady())
    std::this_thread::yield();
  EXPECT_EQ(append(entryOf("refused")).error, "not connected");
  cluster_.start();
  waitUntilReady();
  EXPECT_EQ(appendMany(10), 10);
  EXPECT_EQ(storedIds(), eachOnce(10));
}

TEST_F(KafkaFaultsTest, RefusesEntriesUntilTheTopicExists) {
  rd_kafka_mock_topic_set_error(cluster_.get(), "events", RD_KAFKA_RESP_ERR_UNKNOWN_TOPIC_OR_PART);
  std::atomic<int> lines{0};
  settings_.configuration = {"debug=metadata"};
  settings_.onLog = [&](int, const std::string&) { ++lines; };
  connect();
  while (lines < 10)
    std::this_thread::yield();
  EXPECT_FALSE(log_->isReady());
  EXPECT_EQ(append(entryOf("refused")).error, "not connected");
  rd_kafka_mock_topic_set_error(cluster_.get(), "events", RD_KAFKA_RESP_ERR_NO_ERROR);
  waitUntilReady();
  EXPECT_EQ(appendMany(1), 1);
  log_.reset();
}

TEST_F(KafkaFaultsTest, RefusesEntriesWithoutALeaderOfTheTopic) {
  connect();
  waitUntilReady();
  const auto setLeaders = [this](int broker) {
    for (int partition = 0; partition < KafkaMockCluster::kPartitions; ++partition)
      cluster_.setLeader("events", partition, broker);
  };
  setLeaders(-1);
  while (log_->isReady())
    std::this_thread::yield();
  EXPECT_EQ(append(entryOf("refused")).error, "not connected");
  setLeaders(2);
  waitUntilReady();
  EXPECT_EQ(appendMany(1), 1);
  EXPECT_EQ(storedIds(), eachOnce(1));
}

TEST_F(KafkaFaultsTest, StoresEntriesAfterAFatalErrorOfTheProducer) {
  connect();
  waitUntilReady();
  EXPECT_TRUE(append(entryOf("before")).isStored);
  cluster_.failNext(KafkaMockCluster::kProduce, 1, RD_KAFKA_RESP_ERR_OUT_OF_ORDER_SEQUENCE_NUMBER);
  EXPECT_LT(appendMany(50), 50);
  while (!append(entryOf("after")).isStored)
    std::this_thread::yield();
  EXPECT_EQ(storedIds()["before"], 1);
  EXPECT_EQ(storedIds()["after"], 1);
}

TEST_F(KafkaFaultsTest, StoresEntriesAfterAFatalErrorAtItsStart) {
  cluster_.failNext(KafkaMockCluster::kInitProducerId, 1,
                    RD_KAFKA_RESP_ERR_CLUSTER_AUTHORIZATION_FAILED);
  std::promise<void> failed;
  std::atomic<bool> isFirst{true};
  settings_.onLog = [&](int, const std::string& text) {
    if (text.find("Fatal error") != std::string::npos && isFirst.exchange(false)) {
      failed.set_value();
    }
  };
  connect();
  failed.get_future().get();
  while (!append(entryOf("0")).isStored)
    std::this_thread::yield();
  EXPECT_EQ(storedIds(), eachOnce(1));
  log_.reset();
}

}  // namespace
}  // namespace jx
