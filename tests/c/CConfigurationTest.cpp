// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests configuration, counters and callbacks of the C API.

#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <future>
#include <string>
#include <vector>

#include "jx/c/jx.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/c/CTestTools.h"
#include "tests/support/JXFailingDisk.h"
#include "tests/support/JXFakePlatform.h"
#include "tests/support/StoredBytes.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using std::chrono::milliseconds;

jx_configuration defaultConfiguration() {
  jx_configuration configuration;
  EXPECT_EQ(jx_configuration_init(&configuration, sizeof configuration), JX_OK);
  return configuration;
}

// Returns a configuration without network and storage, with the fake platform.
jx_configuration isolated() {
  JXCoreConfiguration fake;
  fake.platform = std::make_shared<JXFakePlatform>();
  EXPECT_TRUE(JXCoreConfiguration::set(fake));
  jx_configuration configuration = defaultConfiguration();
  configuration.dry_run = true;
  configuration.log_level = 0;
  return configuration;
}

TEST(CConfiguration, HasTheDefaultsOfCpp) {
  const jx_configuration c = defaultConfiguration();
  EXPECT_EQ(c.struct_size, sizeof c);
  EXPECT_EQ(c.storage_folder, nullptr);
  EXPECT_FALSE(c.stores_only_with_consent);
  EXPECT_EQ(c.proxy, nullptr);
  EXPECT_EQ(c.log_level, 3);
  EXPECT_EQ(c.max_requests, 10'000u);
  EXPECT_EQ(c.max_bytes, 33'554'432u);
  EXPECT_EQ(c.max_age_ms, 2'592'000'000);
  EXPECT_EQ(c.max_dead_letters, 1'000u);
  EXPECT_EQ(c.max_in_memory, 1'000u);
  EXPECT_EQ(c.initial_backoff_ms, 1'000);
  EXPECT_EQ(c.max_backoff_ms, 300'000);
  EXPECT_EQ(c.max_retry_after_ms, 86'400'000);
  EXPECT_EQ(c.connect_timeout_ms, 10'000);
  EXPECT_EQ(c.request_timeout_ms, 30'000);
  EXPECT_EQ(c.sync_delay_ms, 1'000);
  EXPECT_EQ(c.user_agent_wait_ms, 10'000);
  EXPECT_FALSE(c.dry_run);
  EXPECT_FALSE(c.sends_queue_to_current_host);
}

std::int64_t noon(void* context) { return *static_cast<std::int64_t*>(context); }

TEST(CConfiguration, AppliesEveryField) {
  std::int64_t time = 1'700'000'000'000;
  const char* const keys[] = {"first", nullptr};
  jx_configuration c = isolated();
  c.storage_folder = "folder";
  c.stores_only_with_consent = true;
  c.collection_host = "collect.example.com";
  c.sends_queue_to_current_host = true;
  c.ca_file = "ca.pem";
  c.pinned_public_keys = keys;
  c.pinned_public_key_count = 2;
  c.proxy = "";
  c.log_level = 1;
  c.max_requests = 2;
  c.max_bytes = 3;
  c.max_age_ms = 4;
  c.max_dead_letters = 5;
  c.max_in_memory = 6;
  c.initial_backoff_ms = 7;
  c.max_backoff_ms = 8;
  c.max_retry_after_ms = 9;
  c.connect_timeout_ms = 10;
  c.request_timeout_ms = 11;
  c.sync_delay_ms = 12;
  c.user_agent_wait_ms = 13;
  c.bundle_identifier = "com.example.tv";
  c.bundle_name = "Example";
  c.bundle_version = "100";
  c.bundle_short_version = "1.0";
  c.screen_width = 1280;
  c.screen_height = 720;
  c.user_agent = "Agent/1";
  c.clock = &noon;
  c.clock_context = &time;
  ASSERT_EQ(jx_configure(&c), JX_OK);

  const JXCoreConfiguration now = JXCoreConfiguration::current();
  EXPECT_EQ(now.storageFolder, JXString("folder"));
  EXPECT_TRUE(now.storesOnlyWithConsent);
  EXPECT_EQ(now.collectionHost, JXString("collect.example.com"));
  EXPECT_TRUE(now.sendsQueueToCurrentHost);
  EXPECT_EQ(now.caFile, JXString("ca.pem"));
  EXPECT_EQ(now.pinnedPublicKeys, (std::vector<std::string>{"first", ""}));
  EXPECT_EQ(now.proxy, JXString(""));
  EXPECT_EQ(now.logLevel, 1);
  EXPECT_EQ(now.outboxBounds.maxRequests, 2u);
  EXPECT_EQ(now.outboxBounds.maxBytes, 3u);
  EXPECT_EQ(now.outboxBounds.maxAge, milliseconds(4));
  EXPECT_EQ(now.outboxBounds.maxDeadLetters, 5u);
  EXPECT_EQ(now.outboxBounds.maxInMemory, 6u);
  EXPECT_EQ(now.retryTimings.initialBackoff, milliseconds(7));
  EXPECT_EQ(now.retryTimings.maxBackoff, milliseconds(8));
  EXPECT_EQ(now.retryTimings.maxRetryAfter, milliseconds(9));
  EXPECT_EQ(now.retryTimings.connectTimeout, milliseconds(10));
  EXPECT_EQ(now.retryTimings.requestTimeout, milliseconds(11));
  EXPECT_EQ(now.retryTimings.syncDelay, milliseconds(12));
  EXPECT_EQ(now.retryTimings.userAgentWait, milliseconds(13));
  EXPECT_TRUE(now.dryRun);
  EXPECT_EQ(now.bundle.identifier, JXString("com.example.tv"));
  EXPECT_EQ(now.bundle.name, JXString("Example"));
  EXPECT_EQ(now.bundle.version, JXString("100"));
  EXPECT_EQ(now.bundle.shortVersion, JXString("1.0"));
  EXPECT_EQ(now.screen.width, 1280);
  EXPECT_EQ(now.screen.height, 720);
  EXPECT_EQ(now.userAgent, JXString("Agent/1"));
  EXPECT_EQ(now.clock->nowMs(), 1'700'000'000'000);
  EXPECT_NE(now.platform, nullptr);  // not configurable in C, unchanged
}

TEST(CConfiguration, RejectsConfigurationAfterTheStart) {
  jx_configuration c = isolated();
  ASSERT_EQ(jx_configure(&c), JX_OK);
  jx_server_side* serverSide = nullptr;
  ASSERT_EQ(jx_server_side_create(1, "key", JX_BEHAVIOUR_DEFAULT, nullptr, &serverSide), JX_OK);
  EXPECT_EQ(jx_configure(&c), JX_ERROR_TOO_LATE);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
}

TEST(CConfiguration, AcceptsStructsOfOlderVersionsOnly) {
  jx_configuration c = isolated();
  EXPECT_EQ(jx_configuration_init(&c, sizeof c + 1), JX_ERROR_STRUCT_SIZE);
  EXPECT_EQ(jx_configuration_init(&c, sizeof(size_t)), JX_ERROR_STRUCT_SIZE);
  EXPECT_EQ(jx_configuration_init(&c, sizeof c - 1), JX_ERROR_STRUCT_SIZE);
  std::memset(&c, 0x55, sizeof c);
  const size_t older = offsetof(jx_configuration, log_level);
  ASSERT_EQ(jx_configuration_init(&c, older), JX_OK);
  EXPECT_EQ(c.log_level, 0x55555555);  // outside the size that the program passed
  EXPECT_EQ(jx_configure(&c), JX_OK);
  EXPECT_EQ(JXCoreConfiguration::current().logLevel, 3);
  c.struct_size = sizeof c + 1;
  EXPECT_EQ(jx_configure(&c), JX_ERROR_STRUCT_SIZE);
  jx_counters counters;
  EXPECT_EQ(jx_counters_get(&counters, sizeof counters + 1), JX_ERROR_STRUCT_SIZE);
  EXPECT_EQ(jx_counters_get(&counters, sizeof counters - 1), JX_ERROR_STRUCT_SIZE);
}

TEST(CConfiguration, RejectsAKeyCountWithoutKeys) {
  jx_configuration c = isolated();
  c.pinned_public_key_count = 1;
  EXPECT_EQ(jx_configure(&c), JX_ERROR_NULL_ARGUMENT);
}

void storeMessage(void* context, int32_t level, const char* message) {
  static_cast<std::vector<std::string>*>(context)->push_back(std::to_string(level) + " " + message);
}

TEST(CConfiguration, LogsToTheSinkUpToTheLevel) {
  std::vector<std::string> lines;
  jx_configuration c = isolated();
  c.log_sink = &storeMessage;
  c.log_sink_context = &lines;
  c.log_level = 3;
  ASSERT_EQ(jx_configure(&c), JX_OK);
  EXPECT_EQ(jx_object_free(reinterpret_cast<jx_object*>(&c)), JX_ERROR_DEAD_HANDLE);
  jx_set_log_level(2);
  EXPECT_EQ(jx_object_free(reinterpret_cast<jx_object*>(&c)), JX_ERROR_DEAD_HANDLE);
  EXPECT_EQ(lines, (std::vector<std::string>{"3 jx_object_free: handle was freed or is invalid"}));
  jx_set_log_level(0);
}

struct Outcome {
  int calls = 0;
  int outcome = -1;
  int reason = -1;
  std::string eventId;
  std::promise<void> done;
};

void storeDelivery(void* context, const jx_delivery* delivery) {
  Outcome& outcome = *static_cast<Outcome*>(context);
  outcome.outcome = delivery->outcome;
  outcome.reason = delivery->drop_reason;
  outcome.eventId = delivery->event_id != nullptr ? delivery->event_id : "(none)";
  EXPECT_EQ(delivery->status, 0);
  if (++outcome.calls == 1) outcome.done.set_value();
}

TEST(CConfiguration, ReportsAndCountsThePurgeOfARequest) {
  // Both must outlive the transfer thread, which runs until the process ends.
  static const TemporaryFolder folder;
  static Outcome outcome;
  jx_configuration c = isolated();
  c.dry_run = false;
  c.storage_folder = folder.path().c_str();
  c.sync_delay_ms = 1;
  c.on_delivery = &storeDelivery;
  c.on_delivery_context = &outcome;
  ASSERT_EQ(jx_configure(&c), JX_OK);
  jx_server_side* serverSide = nullptr;
  ASSERT_EQ(jx_server_side_create(1, "key", 2, nullptr, &serverSide),  // disabled by default
            JX_OK);
  JXNetworkManager::sharedInstance().enqueue(
      "http://127.0.0.1:1/events",
      R"({"context":{"event_id":"00000000-0000-4000-8000-000000000001"}})");
  jx_counters counters;
  ASSERT_EQ(jx_counters_get(&counters, sizeof counters), JX_OK);
  EXPECT_EQ(counters.struct_size, sizeof counters);
  EXPECT_EQ(counters.added, 1u);
  EXPECT_EQ(counters.queued, 1u);
  EXPECT_TRUE(counters.paused);
  EXPECT_EQ(jx_flush(0), JX_ERROR_TIMED_OUT);
  EXPECT_EQ(jx_purge(), JX_OK);
  EXPECT_EQ(jx_flush(60'000), JX_OK);
  ASSERT_EQ(jx_counters_get(&counters, sizeof counters), JX_OK);
  EXPECT_EQ(counters.purged, 1u);
  EXPECT_EQ(counters.queued, 0u);
  ASSERT_EQ(outcome.done.get_future().wait_for(std::chrono::seconds(60)),
            std::future_status::ready);
  EXPECT_EQ(outcome.outcome, JX_OUTCOME_DROPPED);
  EXPECT_EQ(outcome.reason, JX_DROP_PURGED);
  EXPECT_EQ(outcome.eventId, "00000000-0000-4000-8000-000000000001");
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
}

TEST(CErasure, ErasesTheFolderAndTheQueue) {
  const TemporaryFolder folder;
  jx_configuration c = isolated();
  c.dry_run = false;
  c.storage_folder = folder.path().c_str();
  ASSERT_EQ(jx_configure(&c), JX_OK);
  jx_server_side* serverSide = nullptr;
  ASSERT_EQ(jx_server_side_create(1, "key", 2, nullptr, &serverSide),  // disabled by default
            JX_OK);
  JXNetworkManager::sharedInstance().enqueue("http://127.0.0.1:1/events", "{}");
  char before[64];
  ASSERT_EQ(jx_get_anonymous_id(before, sizeof before, nullptr), JX_OK);
  char left[16] = "unchanged";
  EXPECT_EQ(jx_erase_all(nullptr, sizeof left, nullptr), JX_ERROR_NULL_ARGUMENT);
  size_t length = 99;
  EXPECT_EQ(jx_erase_all(left, sizeof left, &length), JX_OK);
  EXPECT_STREQ(left, "");
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(filesBelow(folder.path()), std::vector<std::string>{"erased"});
  jx_counters counters;
  ASSERT_EQ(jx_counters_get(&counters, sizeof counters), JX_OK);
  EXPECT_EQ(counters.purged, 1u);
  EXPECT_EQ(counters.queued, 0u);
  char after[64];
  ASSERT_EQ(jx_get_anonymous_id(after, sizeof after, nullptr), JX_OK);
  EXPECT_STRNE(after, before);
  EXPECT_EQ(jx_erase_all(nullptr, 0, nullptr), JX_OK);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
}

TEST(CErasure, ReportsWhatIsLeft) {
  const TemporaryFolder folder;
  jx_configuration c = isolated();
  c.storage_folder = folder.path().c_str();
  ASSERT_EQ(jx_configure(&c), JX_OK);
  folder.write("defaults", "old");
  FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, EROFS);
  disk.includeDeletions();
  const std::string expected =
      folder.path("defaults") + ": Read-only file system\n" + folder.path("erased") +
      ": Read-only file system; another process that uses the folder may write its values again\n";
  std::vector<char> left(expected.size() + 1);
  size_t length = 0;
  EXPECT_EQ(jx_erase_all(left.data(), left.size(), &length), JX_ERROR_NOT_ERASED);
  EXPECT_EQ(left.data(), expected);
  EXPECT_EQ(length, expected.size());
  EXPECT_STREQ(jx_error_detail(), "some stored data could not be erased");
  // A buffer that is too small is no reason to report success.
  EXPECT_EQ(jx_erase_all(left.data(), left.size() - 1, &length), JX_ERROR_NOT_ERASED);
  EXPECT_STREQ(left.data(), "");
  EXPECT_EQ(length, expected.size());
  EXPECT_EQ(jx_erase_all(nullptr, 0, &length), JX_ERROR_NOT_ERASED);
  disk.heal();
  EXPECT_EQ(jx_erase_all(nullptr, 0, &length), JX_OK);
}

}  // namespace
}  // namespace jx::test
