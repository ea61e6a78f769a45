// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Runs a real nats-server.
#include "tools/jx/gateway/NatsEventLog.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

#include "tests/tools/jx/NatsServerProcess.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

class NatsEventLogTest : public testing::Test {
 protected:
  void connect() {
    Result<std::unique_ptr<NatsEventLog>> connected = NatsEventLog::connect(settings_);
    ASSERT_TRUE(connected) << connected.error().text;
    log_ = std::move(*connected);
  }
  void waitUntilReady() const {
    while (!log_->isReady())
      std::this_thread::yield();
  }
  static LogEntry entryOf(const std::string& eventId) {
    LogEntry entry;
    entry.site = "1";
    entry.name = "play";
    entry.eventId = eventId;
    entry.body = R"({"event_name":"play"})";
    return entry;
  }
  LogResult append(const std::string& eventId) {
    std::promise<LogResult> result;
    log_->append(entryOf(eventId), [&](const LogResult& stored) { result.set_value(stored); });
    return result.get_future().get();
  }

  NatsServerProcess server_;
  NatsSettings settings_ = [this] {
    NatsSettings settings;
    settings.servers = server_.servers();
    return settings;
  }();
  std::unique_ptr<NatsEventLog> log_;
};

TEST_F(NatsEventLogTest, StoresAnEntryOnce) {
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  const LogResult first = append("e1");
  EXPECT_TRUE(first.isStored) << first.error;
  EXPECT_FALSE(first.isRepeat);
  const LogResult again = append("e1");
  EXPECT_TRUE(again.isStored) << again.error;
  EXPECT_TRUE(again.isRepeat);
  EXPECT_FALSE(append("e2").isRepeat);
  EXPECT_FALSE(append("").isRepeat);
  EXPECT_FALSE(append("").isRepeat) << "entries without an ID are not compared";
}

TEST_F(NatsEventLogTest, RefusesWhatNoStreamStores) {
  server_.start();
  connect();
  waitUntilReady();
  const LogResult result = append("e1");
  EXPECT_FALSE(result.isStored);
  EXPECT_EQ(result.error, "no stream stores the subject");
}

TEST_F(NatsEventLogTest, RefusesEntriesUntilAServerRuns) {
  connect();
  EXPECT_FALSE(log_->isReady());
  EXPECT_EQ(append("e1").error, "not connected");
  server_.start();
  server_.setUp();
  waitUntilReady();
  EXPECT_TRUE(append("e1").isStored);
}

TEST_F(NatsEventLogTest, ReportsWaitingEntriesWhenTheServerIsKilled) {
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  EXPECT_TRUE(append("e1").isStored);
  server_.freeze();
  std::promise<LogResult> result;
  log_->append(entryOf("e2"), [&](const LogResult& stored) { result.set_value(stored); });
  server_.kill();
  EXPECT_EQ(result.get_future().get().error, "connection lost");
}

TEST_F(NatsEventLogTest, ReportsEntriesThatAreNotAcknowledgedInTime) {
  settings_.timeout = milliseconds(50);
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  server_.freeze();
  EXPECT_EQ(append("e1").error, "no acknowledgement");
  server_.thaw();
}

// The socket is full then, and a call of the library blocks.
TEST_F(NatsEventLogTest, ReportsEntriesThatAFrozenServerDoesNotRead) {
  settings_.timeout = milliseconds(300);
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  server_.freeze();
  constexpr int kEntries = 2'000;
  std::atomic<int> reported{0};
  LogEntry entry = entryOf("e");
  entry.body = std::string(30'000, 'a');
  for (int i = 0; i < kEntries; ++i)
    log_->append(entry, [&](const LogResult& result) { reported += result.isStored ? 0 : 1; });
  while (reported < kEntries)
    std::this_thread::yield();
  server_.thaw();
  waitUntilReady();
  while (!append("after").isStored)
    std::this_thread::yield();
}

TEST_F(NatsEventLogTest, LimitsTheWaitingEntries) {
  settings_.maxPending = 1;
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  server_.freeze();
  std::promise<LogResult> first;
  log_->append(entryOf("e1"), [&](const LogResult& stored) { first.set_value(stored); });
  EXPECT_EQ(append("e2").error, "too many entries wait for the broker");
  server_.thaw();
  EXPECT_TRUE(first.get_future().get().isStored);
}

TEST_F(NatsEventLogTest, ReportsWaitingEntriesAtItsEnd) {
  server_.start();
  server_.setUp();
  connect();
  waitUntilReady();
  server_.freeze();
  LogResult result;
  log_->append(entryOf("e1"), [&](const LogResult& stored) { result = stored; });
  log_.reset();
  EXPECT_FALSE(result.isStored);
  EXPECT_EQ(result.error, "the gateway stops");
  server_.thaw();
}

TEST_F(NatsEventLogTest, ConnectsWhenItsCredentialsBecomeValid) {
  server_.start("authorization { user: a, password: b }\n");
  connect();
  // The library gives up after the second rejection.
  EXPECT_TRUE(server_.waitForErrors("cid:8 - "));
  EXPECT_EQ(append("e1").error, "not connected");
  server_.kill();
  server_.start();
  server_.setUp();
  waitUntilReady();
  EXPECT_TRUE(append("e1").isStored);
}

TEST_F(NatsEventLogTest, ReportsThatAStreamIsFull) {
  server_.start();
  StreamSettings small;
  small.maxBytes = 100;
  server_.setUp(small);
  connect();
  waitUntilReady();
  EXPECT_TRUE(append("e1").isStored);
  const LogResult result = append("e2");
  EXPECT_FALSE(result.isStored);
  EXPECT_EQ(result.error, "maximum bytes exceeded");
  EXPECT_EQ(result.cause, LogResult::Cause::Refused);
  server_.setUp();
  EXPECT_TRUE(append("e2").isStored);
  EXPECT_TRUE(append("e1").isRepeat) << "the first entry was not replaced";
}

TEST_F(NatsEventLogTest, ReportsEntriesThatTheServerNeverStores) {
  server_.start("max_payload: 1000\n");
  server_.setUp();
  connect();
  waitUntilReady();
  LogEntry entry = entryOf("e1");
  entry.body = std::string(1'000, 'a');
  std::promise<LogResult> result;
  log_->append(entry, [&](const LogResult& stored) { result.set_value(stored); });
  EXPECT_EQ(result.get_future().get().cause, LogResult::Cause::TooLarge);
  EXPECT_TRUE(append("e2").isStored) << "the connection goes on";
}

TEST_F(NatsEventLogTest, RejectsServersThatAreNoAddress) {
  settings_.servers.urls = {"nats://127.0.0.1:port"};
  const auto log = NatsEventLog::connect(settings_);
  ASSERT_FALSE(log);
  EXPECT_EQ(log.error().text.substr(0, 6), "NATS: ");
}

TEST(NatsSubject, ContainsNoCharacterWithAMeaning) {
  EXPECT_EQ(subjectPart("add_to_cart"), "add_to_cart");
  EXPECT_EQ(subjectPart("a.b>c*d e"), "a_b_c_d_e");
  EXPECT_EQ(subjectPart("caf\xC3\xA9"), "caf__");
  EXPECT_EQ(subjectPart(std::string("a\0b\r\n", 5)), "a_b__");
  EXPECT_EQ(subjectPart(""), "_");
  EXPECT_EQ(subjectPart(std::string(100, 'a')), std::string(64, 'a'));
}

}  // namespace
}  // namespace jx
