// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The values that an event changes are stored with the event.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "jx/core/JXApplication.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXDeferredChanges.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

// Counts the writes of the calling thread.
class WritesOfThisThread {
 public:
  WritesOfThisThread() {
    count_ = 0;
    JXFileCalls::current().write = [](int descriptor, const iovec* parts, int count) {
      ++count_;
      return JXFileCalls::system().write(descriptor, parts, count);
    };
  }
  ~WritesOfThisThread() { JXFileCalls::current() = JXFileCalls::system(); }
  int count() const { return count_; }

 private:
  static thread_local int count_;
};
thread_local int WritesOfThisThread::count_ = 0;

class StoredValues : public ServerSideFixture {
 protected:
  StoredValues() {
    platform->hasUserDefaults = false;
    queueForReal();
    configuration.storageFolder = state;
    // The transfer thread does not write while a test counts.
    configuration.retryTimings.syncDelay = std::chrono::hours(1);
  }

  // Returns the folder of the next start if this process is killed now.
  std::string killedNow() {
    const std::string copy = storage().path("copy" + std::to_string(copies_++));
    std::filesystem::copy(state, copy, std::filesystem::copy_options::recursive);
    std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
    if (std::filesystem::exists(copy + "/outbox")) {
      std::filesystem::permissions(copy + "/outbox", std::filesystem::perms::owner_all);
    }
    return copy;
  }
  JXString foundAfterKill(std::string_view key) {
    const std::string copy = killedNow();
    JXDefaultsFile defaults(copy + "/defaults");
    JXOutbox outbox(copy, JXOutboxBounds(), clock, nullptr, false, {}, "outbox");
    outbox.beginStoring(&defaults);
    return defaults.objectForKey(key);
  }
  JXString inFile(std::string_view key) {
    return JXDefaultsFile(killedNow() + "/defaults").objectForKey(key);
  }

  const std::string state = storage().path("state");
  int copies_ = 0;
};

TEST_F(StoredValues, ExecuteWritesOnceWhenItsTimeHasChanged) {
  const auto serverSide = make();
  execute(*serverSide);
  const WritesOfThisThread writes;
  for (int i = 1; i <= 3; ++i) {
    clock->advance(7);
    execute(*serverSide);
    EXPECT_EQ(writes.count(), i);
  }
}

TEST_F(StoredValues, NextStartFindsTheTimesOfAKilledProcess) {
  const auto serverSide = make();
  execute(*serverSide);
  clock->advance(7);
  execute(*serverSide);
  EXPECT_EQ(foundAfterKill(kJXPredefinedVariable_LastCallMs), std::to_string(kStartMs + 7));
  EXPECT_EQ(foundAfterKill(kJXUsageDuration), "7");
}

TEST_F(StoredValues, ExecuteWithoutASenderWritesThemToTheirFile) {
  const auto serverSide = make();
  execute(*serverSide);
  serverSide->setSenderDelegate(nullptr);
  clock->advance(7);
  serverSide->execute(JXCustomEvent::initWithName("quiz"));
  EXPECT_EQ(inFile(kJXUsageDuration), "7");
}

TEST_F(StoredValues, DryRunWritesThemToTheirFile) {
  configuration.dryRun = true;
  const auto serverSide = make();
  execute(*serverSide);
  clock->advance(7);
  execute(*serverSide);
  EXPECT_EQ(inFile(kJXUsageDuration), "7");
}

TEST_F(StoredValues, BackgroundTransitionWritesThemAtOnce) {
  const auto serverSide = make();
  execute(*serverSide);
  clock->advance(7);
  execute(*serverSide);
  JXApplication::applicationDidEnterBackground();
  EXPECT_EQ(inFile(kJXUsageDuration), "7");
  EXPECT_EQ(inFile(kJXExitTimestamp), std::to_string(kStartMs + 7));
}

TEST_F(StoredValues, StartContinuesTheUsageOfAKilledProcess) {
  {
    // A process that was killed after an event at this time.
    JXDefaultsFile defaults(state + "/defaults");
    defaults.setObject_forKey("100", kJXUsageDuration);
    JXOutbox outbox(state, JXOutboxBounds(), clock, nullptr, false, {}, "outbox");
    outbox.beginStoring(&defaults);
    defaults.setObject_forKey(std::to_string(kStartMs), kJXSessionStartTimestamp);
    const JXDeferredChanges changes;
    defaults.beginChanges();
    defaults.setObject_forKey("150", kJXUsageDuration);
    defaults.endChanges();
    outbox.add("http://127.0.0.1:1/events?jx_s=1234&token=key", "earlier");
    std::filesystem::copy(state, storage().path("killed"),
                          std::filesystem::copy_options::recursive);
  }
  std::filesystem::remove_all(state);
  std::filesystem::rename(storage().path("killed"), state);
  std::filesystem::permissions(state, std::filesystem::perms::owner_all);
  std::filesystem::permissions(state + "/outbox", std::filesystem::perms::owner_all);
  const auto serverSide = make();
  EXPECT_EQ(JXUserDefaults::retrieveInfoFromUserDefaults(kJXUsageDuration), "150");
}

}  // namespace
}  // namespace jx::test
