// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <new>
#include <string>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXDeferredChanges.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/platform/JXManualClock.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/memory/FailingMemory.h"

namespace jx {
namespace {

using test::Failing;
using test::FailingMemory;

class DefaultsMemory : public ::testing::TestWithParam<Failing> {};

INSTANTIATE_TEST_SUITE_P(Failing, DefaultsMemory,
                         ::testing::Values(Failing::OnlyOne, Failing::AllLater));

TEST_P(DefaultsMemory, StoresTheValueThatItReturnsAtEachFailingAllocation) {
  const TemporaryFolder folder;
  const JXString key("a key that is longer than an inline string");
  const JXString before("before");
  const JXString after("after");
  bool hasFailed = true;
  int changed = 0;
  std::size_t succeeding = 0;
  for (; hasFailed && succeeding < 1'000; ++succeeding) {
    const std::string path = folder.file("defaults" + std::to_string(succeeding));
    JXString value;
    {
      JXDefaultsFile file(path);
      file.setObject_forKey(before, succeeding % 2 == 0 ? key : JXString("other"));
      {
        const FailingMemory memory(succeeding / 2, GetParam());
        try {
          file.setObject_forKey(after, key);
        } catch (const std::bad_alloc&) {
        }
        hasFailed = memory.hasFailed();
      }
      value = file.objectForKey(key);
      file.maintain();
    }
    if (value == after) ++changed;
    EXPECT_EQ(JXDefaultsFile(path).objectForKey(key), value) << succeeding;
  }
  EXPECT_FALSE(hasFailed);
  EXPECT_GE(succeeding, 5u);
  EXPECT_GE(changed, 1);
}

// A process that stores a value of the user defaults with a request.
struct StoringProcess {
  explicit StoringProcess(const std::string& state)
      : defaults(state + "/defaults"),
        outbox(state, JXOutboxBounds(), std::make_shared<JXManualClock>(1'790'000'000'000), nullptr,
               false, {}, "outbox") {}

  void executeWith(const JXString& value) {
    const JXDeferredChanges changes;
    defaults.beginChanges();
    defaults.setObject_forKey(value, "a key that is longer than an inline string");
    defaults.endChanges();
    isQueued = outbox.add("https://collect.example/events", "body").has_value();
  }
  JXString value() { return defaults.objectForKey("a key that is longer than an inline string"); }

  JXDefaultsFile defaults;
  JXOutbox outbox;
  bool isQueued = false;
};

std::string killedNow(const std::string& state) {
  std::string copy = state + "-killed";
  std::filesystem::copy(state, copy, std::filesystem::copy_options::recursive);
  std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
  std::filesystem::permissions(copy + "/outbox", std::filesystem::perms::owner_all);
  return copy;
}

TEST_P(DefaultsMemory, StoresAValueOfARequestAtEachFailingAllocation) {
  const TemporaryFolder folder;
  bool hasFailed = true;
  std::size_t succeeding = 0;
  for (; hasFailed && succeeding < 1'000; ++succeeding) {
    const std::string state = folder.file("state" + std::to_string(succeeding));
    JXString value;
    {
      StoringProcess process(state);
      process.outbox.beginStoring(&process.defaults);
      process.defaults.setObject_forKey("1", "visits");
      process.executeWith("before, longer than an inline string");
      {
        const FailingMemory memory(succeeding, GetParam());
        try {
          process.executeWith("after, also longer than an inline string");
        } catch (const std::bad_alloc&) {
        }
        hasFailed = memory.hasFailed();
      }
      value = process.value();
      EXPECT_NE(value, JXString()) << succeeding;
      if (process.isQueued && !hasFailed) {
        StoringProcess next(killedNow(state));
        next.outbox.beginStoring(&next.defaults);
        EXPECT_EQ(next.value(), value);
      }
      process.defaults.maintain();
    }
    StoringProcess next(state);
    next.outbox.beginStoring(&next.defaults);
    EXPECT_EQ(next.value(), value) << succeeding;
  }
  EXPECT_FALSE(hasFailed);
}

TEST_P(DefaultsMemory, AppliesTheValueOfAKilledProcessAtEachFailingAllocation) {
  const TemporaryFolder folder;
  std::string killed;
  {
    StoringProcess process(folder.file("state"));
    process.outbox.beginStoring(&process.defaults);
    process.defaults.setObject_forKey("1", "visits");
    process.executeWith("a value that is longer than an inline string");
    killed = killedNow(folder.file("state"));
  }
  bool hasFailed = true;
  std::size_t succeeding = 0;
  for (; hasFailed && succeeding < 1'000; ++succeeding) {
    const std::string state = folder.file("next" + std::to_string(succeeding));
    std::filesystem::copy(killed, state, std::filesystem::copy_options::recursive);
    std::filesystem::permissions(state, std::filesystem::perms::owner_all);
    std::filesystem::permissions(state + "/outbox", std::filesystem::perms::owner_all);
    StoringProcess process(state);
    {
      const FailingMemory memory(succeeding, GetParam());
      process.outbox.beginStoring(&process.defaults);
      hasFailed = memory.hasFailed();
    }
    process.outbox.sync();
    EXPECT_EQ(process.value(), "a value that is longer than an inline string") << succeeding;
    EXPECT_EQ(process.outbox.counters().queued, 1u) << succeeding;
    process.defaults.maintain();
    EXPECT_TRUE(process.defaults.isAvailable()) << succeeding;
  }
  EXPECT_FALSE(hasFailed);
  EXPECT_GE(succeeding, 5u);
}

}  // namespace
}  // namespace jx
