// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The folder "stored" was written by the last revision that stored every change of the user
// defaults in their own file. Two killed processes left it. The requests have the numbers 1 to 6: 1
// was delivered, 2 rejected with status 400, 3 has failed three times and is retried ten minutes
// later; 5 is marked for purging; 4 and 6 are queued.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "jx/core/storage/JXDefaultsFile.h"
#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class StoredFolder : public OutboxTest {
 protected:
  StoredFolder() : state_(folder_.file("state")), outbox_(state_ + "/outbox") {
    fs::copy(JX_SOURCE_DIR "/tests/core/storage/stored", state_, fs::copy_options::recursive);
    const auto forOwner = fs::perms::owner_read | fs::perms::owner_write;
    for (const auto& entry : fs::recursive_directory_iterator(state_)) {
      const auto search = entry.is_directory() ? fs::perms::owner_exec : fs::perms::none;
      fs::permissions(entry.path(), forOwner | search);
    }
    fs::permissions(state_, fs::perms::owner_all);
    // A purge mark contains the number of the file in the file system.
    const std::string marked = outbox_ + "/segment-0000000000000002";
    struct stat status {};
    EXPECT_EQ(::stat(marked.c_str(), &status), 0);
    EXPECT_EQ(contentOf(marked + ".purge"), "11190281 243\n");
    writeFile(marked + ".purge", std::to_string(status.st_ino) + " 243\n");
    fs::permissions(marked + ".purge", forOwner);
  }

  // Returns the body of the request with this number.
  static std::string body(int number) {
    const std::string digit = std::to_string(number);
    return "{\n  \"context\": {\n    \"event_id\": \"00000000-0000-4000-8000-00000000000" + digit +
           "\"\n  },\n  \"name\": \"stored\",\n  \"n\": " + digit + "\n}";
  }

  const std::string state_;
  const std::string outbox_;
  const std::string url_ = "https://collect.example/events?jx_s=600000&token=key";
};

TEST_F(StoredFolder, ListsItsRequests) {
  std::string error;
  const auto queued = listOutbox(outbox_, error);
  ASSERT_EQ(queued.size(), 3u);
  EXPECT_EQ(queued[0].body, body(3));
  EXPECT_EQ(queued[1].body, body(4));
  EXPECT_EQ(queued[2].body, body(6));
  EXPECT_EQ(queued[0].createdMs, kTestNowMs + 2'000);
  const auto dead = listDeadLetters(outbox_, error);
  ASSERT_EQ(dead.size(), 1u);
  EXPECT_EQ(dead[0].body, body(2));
  EXPECT_EQ(dead[0].status, 400);
  EXPECT_EQ(error, "");
}

TEST_F(StoredFolder, ReadsEachValueAndRequest) {
  clock_->advance(5'000);
  JXDefaultsFile defaults(state_ + "/defaults");
  JXOutbox outbox(state_, {}, clock_, nullptr, false, {}, "outbox");
  outbox.beginStoring(&defaults);
  EXPECT_EQ(defaults.objectForKey("#JX_SDK_ID#"), "11111111-2222-4333-8444-555555555555");
  EXPECT_EQ(defaults.objectForKey("#JX_APPLICATION_STARTS#"), "3");
  EXPECT_EQ(defaults.objectForKey("UsageDuration"), "5000");
  EXPECT_EQ(defaults.objectForKey("empty"), "");
  EXPECT_FALSE(defaults.objectForKey("removed").isPresent());
  EXPECT_EQ(outbox.mostStops(JXSendFilter::sourceOf(url_)), 2u);
  EXPECT_EQ(takeAll(outbox), (Bodies{body(4), body(6)}));
  EXPECT_FALSE(outbox.take({0, JXOutboxPick::Order::Retry}).has_value());
  clock_->advance(10 * 60 * 1'000);
  const auto failed = outbox.take({0, JXOutboxPick::Order::Retry});
  ASSERT_TRUE(failed.has_value());
  EXPECT_EQ(failed->body, body(3));
  EXPECT_EQ(failed->url, url_);
  EXPECT_EQ(failed->failures.count, 3u);
  EXPECT_EQ(failed->failures.delay, std::chrono::minutes(10));
  EXPECT_EQ(defaults.damaged(), 0u);
  EXPECT_EQ(outbox.counters().damaged, 0u);
  EXPECT_TRUE(log_.all().empty());
}

TEST_F(StoredFolder, ContinuesWithItsFiles) {
  {
    JXDefaultsFile defaults(state_ + "/defaults");
    JXOutbox outbox(state_, {}, clock_, nullptr, false, {}, "outbox");
    outbox.beginStoring(&defaults);
    defaults.setObject_forKey("6000", "UsageDuration");
    add(outbox, body(7));
  }
  JXDefaultsFile defaults(state_ + "/defaults");
  EXPECT_EQ(defaults.objectForKey("UsageDuration"), "6000");
  EXPECT_EQ(defaults.objectForKey("#JX_APPLICATION_STARTS#"), "3");
  JXOutbox outbox(state_, {}, clock_, nullptr, true, {}, "outbox");
  EXPECT_EQ(takeAll(outbox), (Bodies{body(4), body(6), body(7)}));
}

}  // namespace
}  // namespace jx
