// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/tools/jx/KafkaMockCluster.h"
#include "tools/jx/gateway/KafkaEventLog.h"

namespace jx::test {

/// A log and its cluster, which is a mock cluster.
class KafkaFixture : public testing::Test {
 protected:
  void SetUp() override { settings_.servers = cluster_.servers(); }
  void connect() {
    Result<std::unique_ptr<KafkaEventLog>> connected = KafkaEventLog::connect(settings_);
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
  LogResult append(const LogEntry& entry) {
    const auto promise = std::make_shared<std::promise<LogResult>>();
    std::future<LogResult> result = promise->get_future();
    log_->append(entry, [promise](const LogResult& stored) { promise->set_value(stored); });
    return result.get();
  }
  // Appends the entries "0", "1", ... Returns whether each was stored.
  std::vector<std::future<bool>> startMany(int count) {
    std::vector<std::future<bool>> results;
    for (int i = 0; i < count; ++i) {
      const auto promise = std::make_shared<std::promise<bool>>();
      results.push_back(promise->get_future());
      log_->append(entryOf(std::to_string(i)),
                   [promise](const LogResult& result) { promise->set_value(result.isStored); });
    }
    return results;
  }
  static long countStored(std::vector<std::future<bool>> results) {
    return std::count_if(results.begin(), results.end(), [](auto& result) { return result.get(); });
  }
  long appendMany(int count) { return countStored(startMany(count)); }
  // Returns how often the topic contains each event ID.
  std::map<std::string, int> storedIds() const {
    std::map<std::string, int> ids;
    for (const KafkaRecord& record : cluster_.records("events"))
      ++ids[record.headers.at("event_id")];
    return ids;
  }
  static std::map<std::string, int> eachOnce(int count) {
    std::map<std::string, int> ids;
    for (int i = 0; i < count; ++i)
      ids[std::to_string(i)] = 1;
    return ids;
  }

  const KafkaMockCluster cluster_;
  KafkaSettings settings_;
  std::unique_ptr<KafkaEventLog> log_;
};

}  // namespace jx::test
