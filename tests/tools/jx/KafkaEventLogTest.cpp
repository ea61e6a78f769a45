// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Runs against the mock cluster of librdkafka, not against a real broker.
#include "tools/jx/gateway/KafkaEventLog.h"

#include <gtest/gtest.h>

#include "tests/tools/jx/KafkaFixture.h"

namespace jx {
namespace {

using std::chrono::milliseconds;
using Cause = LogResult::Cause;
using Headers = std::map<std::string, std::string>;
using test::KafkaRecord;

class KafkaEventLogTest : public test::KafkaFixture {};

TEST_F(KafkaEventLogTest, StoresTheBodyWithKeyAndHeaders) {
  connect();
  waitUntilReady();
  LogEntry entry = entryOf("e1");
  entry.session = "s1";
  const LogResult result = append(entry);
  EXPECT_TRUE(result.isStored) << result.error;
  EXPECT_FALSE(result.isRepeat);
  const std::vector<KafkaRecord> records = cluster_.records("events");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].key, "s1");
  EXPECT_EQ(records[0].body, R"({"event_name":"play"})");
  EXPECT_EQ(records[0].headers,
            (Headers{{"event_id", "e1"}, {"site", "1"}, {"event_name", "play"}}));
  EXPECT_TRUE(cluster_.records("events-invalid").empty());
}

TEST_F(KafkaEventLogTest, UsesTheEventIdAsKeyWithoutASession) {
  connect();
  waitUntilReady();
  EXPECT_TRUE(append(entryOf("e1")).isStored);
  const std::vector<KafkaRecord> records = cluster_.records("events");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].key, "e1");
}

TEST_F(KafkaEventLogTest, StoresAnEntryWithoutAnyMetadata) {
  connect();
  waitUntilReady();
  EXPECT_TRUE(append(LogEntry{}).isStored);
  const std::vector<KafkaRecord> records = cluster_.records("events");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].key, std::nullopt);
  EXPECT_EQ(records[0].body, "");
  EXPECT_EQ(records[0].headers, Headers{});
}

TEST_F(KafkaEventLogTest, StoresAnyBytes) {
  connect();
  waitUntilReady();
  const std::string bytes("\0\r\n\xFF\0", 5);
  LogEntry entry = entryOf("e1");
  entry.site = entry.name = entry.session = entry.body = bytes;
  EXPECT_TRUE(append(entry).isStored);
  const std::vector<KafkaRecord> records = cluster_.records("events");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].key, bytes);
  EXPECT_EQ(records[0].body, bytes);
  EXPECT_EQ(records[0].headers,
            (Headers{{"event_id", "e1"}, {"site", bytes}, {"event_name", bytes}}));
}

TEST_F(KafkaEventLogTest, StoresInvalidEventsInTheirTopic) {
  connect();
  waitUntilReady();
  LogEntry entry = entryOf("e1");
  entry.isInvalid = true;
  entry.diagnostics = R"(["no name"])";
  EXPECT_TRUE(append(entry).isStored);
  EXPECT_TRUE(cluster_.records("events").empty());
  const std::vector<KafkaRecord> records = cluster_.records("events-invalid");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(records[0].headers, (Headers{{"event_id", "e1"},
                                         {"site", "1"},
                                         {"event_name", "play"},
                                         {"diagnostics", R"(["no name"])"}}));
}

// The cluster does not compare event IDs, so that a consumer must.
TEST_F(KafkaEventLogTest, StoresAnEntryThatATelevisionRepeatsInTheSamePartition) {
  connect();
  waitUntilReady();
  for (int i = 0; i < 2; ++i) {
    const LogResult result = append(entryOf("e1"));
    EXPECT_TRUE(result.isStored);
    EXPECT_FALSE(result.isRepeat);
  }
  const std::vector<KafkaRecord> records = cluster_.records("events");
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].partition, records[1].partition);
}

TEST_F(KafkaEventLogTest, ReportsEntriesThatAreNotAcknowledgedInTime) {
  settings_.timeout = milliseconds(50);
  connect();
  waitUntilReady();
  cluster_.delayNext(30'000);
  const LogResult result = append(entryOf("e1"));
  EXPECT_EQ(result.error, "no acknowledgement");
  EXPECT_EQ(result.cause, Cause::Timeout);
}

TEST_F(KafkaEventLogTest, LimitsTheWaitingEntries) {
  settings_.maxPending = 1;
  connect();
  waitUntilReady();
  std::promise<LogResult> first;
  cluster_.delayNext(1'000);
  log_->append(entryOf("e1"), [&](const LogResult& stored) { first.set_value(stored); });
  const LogResult second = append(entryOf("e2"));
  EXPECT_EQ(second.error, "too many entries wait for the broker");
  EXPECT_EQ(second.cause, Cause::Full);
  EXPECT_TRUE(first.get_future().get().isStored);
  EXPECT_TRUE(append(entryOf("e3")).isStored);
}

TEST_F(KafkaEventLogTest, ReportsWaitingEntriesAtItsEnd) {
  connect();
  waitUntilReady();
  cluster_.delayNext(30'000);
  std::vector<std::string> errors;
  log_->append(entryOf("e1"), [&](const LogResult& stored) { errors.push_back(stored.error); });
  log_->append(entryOf("e2"), [&](const LogResult& stored) { errors.push_back(stored.error); });
  log_.reset();
  EXPECT_EQ(errors, (std::vector<std::string>{"the gateway stops", "the gateway stops"}));
}

TEST_F(KafkaEventLogTest, RefusesOnlyTheEntryThatIsTooLarge) {
  connect();
  waitUntilReady();
  LogEntry large = entryOf("large");
  large.body.assign(1'000'001, ' ');
  const LogResult result = append(large);
  EXPECT_EQ(result.error, "Broker: Message size too large");
  EXPECT_EQ(result.cause, Cause::TooLarge);
  EXPECT_EQ(appendMany(1), 1);
  EXPECT_EQ(storedIds(), eachOnce(1));
}

// The limit of the broker applies to a batch of entries, so that a small one can exceed it.
TEST_F(KafkaEventLogTest, DoesNotReportASmallEntryAsTooLarge) {
  connect();
  waitUntilReady();
  cluster_.failNext(test::KafkaMockCluster::kProduce, 1, RD_KAFKA_RESP_ERR_MSG_SIZE_TOO_LARGE);
  const LogResult result = append(entryOf("e1"));
  EXPECT_EQ(result.error, "Broker: Message size too large");
  EXPECT_EQ(result.cause, Cause::Refused);
}

}  // namespace
}  // namespace jx
