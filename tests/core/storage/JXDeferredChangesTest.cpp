// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDeferredChanges.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <future>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "jx/core/JXForkedChild.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/CheckInterval.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

constexpr const char* kKey = "UsageDuration";

// One process that uses a storage folder as the core does.
struct Process {
  Process(const std::string& folder, std::shared_ptr<const JXClock> clock,
          const JXOutboxBounds& bounds = {})
      : erasures(std::make_shared<JXErasures>(folder)),
        defaults(folder + "/defaults", erasures),
        outbox(folder, bounds, std::move(clock), erasures, false, {}, "outbox") {
    outbox.beginStoring(&defaults);
  }

  void change(const std::string& value) {
    defaults.beginChanges();
    defaults.setObject_forKey(value, kKey);
    defaults.endChanges();
  }
  // As ServerSide::execute does. Returns the ID of the request.
  std::uint64_t execute(const std::string& value, const std::string& body = "body") {
    const JXErasureScope composing(*erasures);
    const JXDeferredChanges changes;
    change(value);
    JXErasureScope::restart(*erasures);
    return outbox.add(kTestUrl, body).value_or(0);
  }
  JXString value() { return defaults.objectForKey(kKey); }

  std::shared_ptr<JXErasures> erasures;
  JXDefaultsFile defaults;
  JXOutbox outbox;
};

class DeferredChanges : public ::testing::Test {
 protected:
  DeferredChanges() : state_(folder_.file("state")) {}

  std::unique_ptr<Process> start(const std::string& state, const JXOutboxBounds& bounds = {}) {
    return std::make_unique<Process>(state, clock_, bounds);
  }
  // Starts a process whose last values are in its requests only from the next event on.
  std::unique_ptr<Process> startRegistered(const JXOutboxBounds& bounds = {}) {
    auto process = start(state_, bounds);
    process->defaults.setObject_forKey("1", "visits");
    return process;
  }
  // Returns a copy of the folder, as the next process finds it when all processes are killed now.
  std::string killedNow() {
    std::string copy = folder_.file("killed-" + std::to_string(copies_++));
    std::filesystem::copy(state_, copy, std::filesystem::copy_options::recursive);
    std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
    std::filesystem::permissions(copy + "/outbox", std::filesystem::perms::owner_all);
    return copy;
  }
  // Returns the value that the next process finds when all processes are killed now.
  JXString foundAfterKill() { return start(killedNow())->value(); }
  // Returns the value in the file of the user defaults.
  JXString inFile() { return JXDefaultsFile(killedNow() + "/defaults").objectForKey(kKey); }

  LogLines log_;
  TemporaryFolder folder_;
  const test::CheckInterval interval_{test::CheckInterval::kNone};
  const std::string state_;
  std::shared_ptr<JXManualClock> clock_ = std::make_shared<JXManualClock>(kTestNowMs);
  int copies_ = 0;
};

TEST_F(DeferredChanges, StoresRequestAndChangedValueWithOneWrite) {
  const auto process = startRegistered();
  process->execute("1");
  const FailingDisk disk(0, 0, FailingDisk::Write::Nothing);
  process->execute("2");
  EXPECT_EQ(disk.calls(), 1);
}

TEST_F(DeferredChanges, NextProcessFindsTheLastValueOfAKilledOne) {
  const auto process = startRegistered();
  for (const char* value : {"1", "2", "3"})
    process->execute(value);
  EXPECT_FALSE(inFile().isPresent());
  EXPECT_EQ(foundAfterKill(), "3");
}

TEST_F(DeferredChanges, RequestThatChangesNothingStoresNoValue) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string segment = state_ + "/outbox/" + JXOutboxSegment::nameOf(1);
  const auto first = std::filesystem::file_size(segment);
  process->outbox.add(kTestUrl, "body");
  const auto second = std::filesystem::file_size(segment);
  process->execute("1");
  EXPECT_EQ(std::filesystem::file_size(segment) - second, second - first);
  EXPECT_EQ(foundAfterKill(), "1");
}

TEST_F(DeferredChanges, NextProcessWritesTheValueOfAKilledOne) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string copy = killedNow();
  start(copy);
  EXPECT_EQ(JXDefaultsFile(copy + "/defaults").objectForKey(kKey), "1");
}

TEST_F(DeferredChanges, ValueOfAKilledProcessIsAppliedOnlyOnce) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string copy = killedNow();
  start(copy)->change("2");
  // The request with the first value is still queued.
  EXPECT_EQ(start(copy)->value(), "2");
}

TEST_F(DeferredChanges, LastOfSeveralKilledProcessesWins) {
  // The second process starts while the first one runs.
  const auto first = startRegistered();
  const auto second = start(state_);
  second->defaults.setObject_forKey("2", "visits");
  second->execute("second");
  first->execute("first");
  // The first one was registered before the second one.
  EXPECT_EQ(foundAfterKill(), "second");
  first->defaults.maintain();
  first->execute("last");
  EXPECT_EQ(foundAfterKill(), "last");
}

TEST_F(DeferredChanges, MaintenanceWritesTheValue) {
  const auto process = startRegistered();
  process->execute("1");
  EXPECT_TRUE(process->defaults.needsMaintenance());
  process->defaults.maintain();
  EXPECT_EQ(inFile(), "1");
  EXPECT_EQ(foundAfterKill(), "1");
}

TEST_F(DeferredChanges, WritesTheValueWhenNoRequestIsStored) {
  const auto process = startRegistered();
  {
    const JXDeferredChanges changes;
    process->change("1");
    EXPECT_FALSE(inFile().isPresent());
  }
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, WritesTheValueWhenTheRequestIsTooLarge) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 100;
  const auto process = startRegistered(bounds);
  EXPECT_EQ(process->execute("1", std::string(101, '.')), 0u);
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, WritesTheValueWhenTheRequestStaysInMemory) {
  const auto process = startRegistered();
  // Its folder cannot be created.
  std::filesystem::remove_all(state_ + "/outbox");
  writeFile(state_ + "/outbox", "");
  EXPECT_NE(process->execute("1"), 0u);
  EXPECT_EQ(process->outbox.counters().inMemory, 1u);
  EXPECT_EQ(JXDefaultsFile(state_ + "/defaults").objectForKey(kKey), "1");
}

TEST_F(DeferredChanges, WritesTheValueAtOnceWithoutAScope) {
  const auto process = startRegistered();
  process->change("1");
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, WritesTheValueAtOnceWithoutAnOutbox) {
  JXDefaultsFile defaults(state_ + "/defaults");
  defaults.setObject_forKey("1", "visits");
  const JXDeferredChanges changes;
  defaults.beginChanges();
  defaults.setObject_forKey("1", kKey);
  defaults.endChanges();
  EXPECT_EQ(JXDefaultsFile(state_ + "/defaults").objectForKey(kKey), "1");
}

TEST_F(DeferredChanges, EventOfAnObserverDoesNotLoseTheValueOfTheOuterOne) {
  const auto process = startRegistered();
  {
    const JXDeferredChanges outer;
    process->change("1");
    process->execute("2");
    // The outer request is not stored.
  }
  EXPECT_EQ(foundAfterKill(), "2");
}

TEST_F(DeferredChanges, OtherValuesAreWrittenAtOnceTogetherWithTheDeferredOnes) {
  const auto process = startRegistered();
  process->execute("1");
  process->defaults.setObject_forKey("2", "visits");
  EXPECT_EQ(inFile(), "1");
  process->execute("2");
  EXPECT_EQ(foundAfterKill(), "2");
}

TEST_F(DeferredChanges, ForkedChildWritesNothing) {
  JXForkedChild::watch();
  const auto process = startRegistered();
  auto changes = std::make_unique<JXDeferredChanges>();
  process->change("1");
  ChildProcess child([&](int) {
    const FailingDisk counting(0, 0, FailingDisk::Write::Nothing);
    changes.reset();
    return counting.calls() == 0 ? 0 : 1;
  });
  EXPECT_EQ(child.wait(), 0);
  EXPECT_FALSE(inFile().isPresent());
  changes.reset();
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, ValueOfAnotherThreadWritesNoPartOfTheValuesThatAreSetTogether) {
  const auto process = startRegistered();
  process->execute("1");
  process->defaults.beginChanges();
  process->defaults.setObject_forKey("2", kKey);
  std::thread([&] { process->defaults.setObject_forKey("tv", "model"); }).join();
  EXPECT_EQ(inFile(), "1");
  EXPECT_EQ(foundAfterKill(), "1");
  EXPECT_EQ(process->value(), "2");
  process->defaults.setObject_forKey("3", kKey);
  process->defaults.endChanges();
  EXPECT_EQ(inFile(), "3");
}

TEST_F(DeferredChanges, ValueThatAnotherThreadSetsMeanwhileIsWritten) {
  const auto process = startRegistered();
  process->defaults.beginChanges();
  process->defaults.setObject_forKey("1", kKey);
  std::thread([&] { process->defaults.setObject_forKey("2", kKey); }).join();
  EXPECT_EQ(inFile(), "2");
  process->defaults.endChanges();
  EXPECT_EQ(inFile(), "2");
}

TEST_F(DeferredChanges, EventOfAnotherThreadStoresNoPartOfTheValuesThatAreSetTogether) {
  const auto process = startRegistered();
  std::promise<void> changed;
  std::promise<void> mayAdd;
  std::thread event([&] {
    const JXDeferredChanges changes;
    process->change("1");
    changed.set_value();
    mayAdd.get_future().wait();
    process->outbox.add(kTestUrl, "body");
  });
  changed.get_future().wait();
  const JXDeferredChanges changes;
  process->defaults.beginChanges();
  process->defaults.setObject_forKey("2", kKey);
  mayAdd.set_value();
  event.join();
  EXPECT_EQ(foundAfterKill(), "1");
  process->defaults.endChanges();
  process->outbox.add(kTestUrl, "body");
  EXPECT_FALSE(inFile().isPresent());
  EXPECT_EQ(foundAfterKill(), "2");
}

TEST_F(DeferredChanges, DeletingTheirFileWritesNoPartOfTheValuesThatAreSetTogether) {
  const auto process = startRegistered();
  process->execute("1");
  process->defaults.beginChanges();
  process->defaults.setObject_forKey("2", kKey);
  process->outbox.purge();
  EXPECT_EQ(inFile(), "1");
  process->defaults.endChanges();
  EXPECT_EQ(inFile(), "2");
}

TEST_F(DeferredChanges, EraseDropsValuesThatAreBeingSetTogether) {
  const auto process = startRegistered();
  process->change("1");
  process->defaults.beginChanges();
  process->defaults.setObject_forKey("2", kKey);
  EXPECT_EQ(process->erasures->erase(), std::vector<std::string>());
  process->defaults.setObject_forKey("7", "visits");
  process->defaults.endChanges();
  EXPECT_FALSE(process->value().isPresent());
  EXPECT_FALSE(inFile().isPresent());
  EXPECT_EQ(JXDefaultsFile(killedNow() + "/defaults").objectForKey("visits"), "7");
}

TEST_F(DeferredChanges, LastValueOfSeveralThreadsIsFound) {
  const auto process = startRegistered();
  std::mutex session;
  int last = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int j = 0; j < 50; ++j) {
        const JXDeferredChanges changes;
        {
          const std::lock_guard<std::mutex> lock(session);
          process->change(std::to_string(++last));
        }
        process->outbox.add(kTestUrl, "body");
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(foundAfterKill(), "200");
}

TEST_F(DeferredChanges, ValueThatAnotherProcessSetLaterWins) {
  const auto process = startRegistered();
  process->execute("1");
  start(state_)->change("other");
  EXPECT_EQ(foundAfterKill(), "other");
}

TEST_F(DeferredChanges, ValueThatAnotherProcessSetBeforeTheLastMaintenanceLoses) {
  const auto process = startRegistered();
  process->execute("1");
  start(state_)->change("other");
  process->defaults.maintain();
  process->execute("2");
  EXPECT_EQ(foundAfterKill(), "2");
}

// Another process uses the folder when the first one is killed, and compacts the file then.
class DeferredChangesOfAKilledProcess : public DeferredChanges {
 protected:
  void killAfterAnEvent(const std::function<void(Process&)>& atTheKill) {
    ChildProcess child([&](int pipe) {
      const auto process = startRegistered();
      process->execute("1");
      if (::write(pipe, "executed\n", 9) != 9) return 1;
      ::pause();
      return 0;
    });
    ASSERT_EQ(child.readLine(), "executed");
    const auto other = start(state_);
    EXPECT_FALSE(other->value().isPresent());
    child.kill();
    atTheKill(*other);
    const auto size = std::filesystem::file_size(state_ + "/defaults");
    for (int i = 0; i < 100; ++i)
      other->defaults.setObject_forKey(std::to_string(i) + std::string(1'000, '.'), "filler");
    other->defaults.maintain();
    ASSERT_LT(std::filesystem::file_size(state_ + "/defaults"), size + 10'000);
  }
};

TEST_F(DeferredChangesOfAKilledProcess, AreFoundAfterACompaction) {
  killAfterAnEvent([](Process&) {});
  EXPECT_EQ(foundAfterKill(), "1");
}

TEST_F(DeferredChangesOfAKilledProcess, LoseAgainstALaterValueAfterACompaction) {
  killAfterAnEvent([](Process& other) { other.change("other"); });
  EXPECT_EQ(foundAfterKill(), "other");
}

TEST_F(DeferredChanges, OwnCompactionKeepsTheValue) {
  const auto process = startRegistered();
  for (int i = 0; i < 100; ++i)
    process->defaults.setObject_forKey(std::to_string(i) + std::string(1'000, '.'), "filler");
  process->execute("1");
  process->defaults.maintain();
  process->execute("2");
  EXPECT_LT(std::filesystem::file_size(state_ + "/defaults"), 10'000u);
  EXPECT_EQ(inFile(), "1");
  EXPECT_EQ(foundAfterKill(), "2");
}

TEST_F(DeferredChanges, AreWrittenBeforeTheirFileIsDeletedByAPurge) {
  const auto process = startRegistered();
  process->execute("1");
  process->outbox.purge();
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, AreWrittenBeforeTheirFileIsDeletedAfterTheLastDelivery) {
  const auto process = startRegistered();
  process->execute("1", std::string(2'000'000, '.'));
  const std::uint64_t id = process->outbox.take()->id;
  process->outbox.markDelivered(id);
  EXPECT_FALSE(inFile().isPresent());
  // Starts the next segment, and deletes the full one.
  process->outbox.add(kTestUrl, "next");
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, AreWrittenBeforeTheirFileIsDeletedByALimit) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  const auto process = startRegistered(bounds);
  process->execute("1", std::string(2'000'000, '.'));
  process->outbox.add(kTestUrl, "next");
  EXPECT_EQ(inFile(), "1");
}

TEST_F(DeferredChanges, AreWrittenBeforeTheirFileIsDeletedByAnotherProcess) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string copy = killedNow();
  std::string error;
  EXPECT_EQ(purgeOutbox(copy + "/outbox", error).removed, 1u);
  EXPECT_EQ(error, "");
  EXPECT_EQ(JXDefaultsFile(copy + "/defaults").objectForKey(kKey), "1");
}

TEST_F(DeferredChanges, AreAppliedFromAFileWithoutAQueuedRequest) {
  const auto process = startRegistered();
  process->execute("1");
  process->outbox.markDelivered(process->outbox.take()->id);
  const std::string copy = killedNow();
  const auto next = start(copy);
  EXPECT_EQ(next->value(), "1");
  EXPECT_EQ(filesNamed(copy + "/outbox", "segment-"), 0u);
  EXPECT_EQ(JXDefaultsFile(copy + "/defaults").objectForKey(kKey), "1");
}

TEST_F(DeferredChanges, PurgeOfAFolderWithoutDefaultsCreatesNone) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string copy = killedNow();
  std::filesystem::remove(copy + "/defaults");
  std::string error;
  EXPECT_EQ(purgeOutbox(copy + "/outbox", error).removed, 1u);
  EXPECT_FALSE(std::filesystem::exists(copy + "/defaults"));
}

TEST_F(DeferredChanges, EraseDropsThem) {
  const auto process = startRegistered();
  process->execute("1");
  std::vector<std::string> left = process->erasures->begin();
  process->defaults.applyErasures();
  process->outbox.applyErasures();
  process->erasures->complete(left);
  EXPECT_FALSE(process->value().isPresent());
  process->defaults.maintain();
  process->defaults.setObject_forKey("2", "visits");
  EXPECT_FALSE(foundAfterKill().isPresent());
}

TEST_F(DeferredChanges, EraseByAnotherProcessDropsThem) {
  const auto process = startRegistered();
  process->execute("1");
  JXErasures(state_).erase();
  process->defaults.maintain();
  EXPECT_FALSE(process->value().isPresent());
  process->defaults.setObject_forKey("2", "visits");
  EXPECT_FALSE(foundAfterKill().isPresent());
}

TEST_F(DeferredChanges, EraseBetweenChangeAndRequestDropsBoth) {
  const auto process = startRegistered();
  {
    const JXErasureScope composing(*process->erasures);
    const JXDeferredChanges changes;
    process->change("1");
    JXErasures(state_).erase();
    process->erasures->check();
    EXPECT_FALSE(process->outbox.add(kTestUrl, "body").has_value());
  }
  EXPECT_FALSE(process->value().isPresent());
  process->defaults.setObject_forKey("2", "visits");
  EXPECT_FALSE(foundAfterKill().isPresent());
}

TEST_F(DeferredChanges, FileFromBeforeAnEraseChangesNoValue) {
  const auto process = startRegistered();
  process->execute("1");
  const std::string before = killedNow();
  JXErasures(state_).erase();
  process->defaults.maintain();
  process->defaults.setObject_forKey("2", "visits");
  const std::string after = killedNow();
  std::filesystem::create_directory(after + "/outbox");
  std::filesystem::permissions(after + "/outbox", std::filesystem::perms::owner_all);
  const std::string name = "/outbox/" + JXOutboxSegment::nameOf(1);
  std::filesystem::copy(before + name, after + name);
  const auto next = start(after);
  EXPECT_EQ(next->outbox.counters().queued, 1u);
  EXPECT_FALSE(next->value().isPresent());
}

TEST_F(DeferredChanges, AreFoundAfterTheOutboxWasRenamed) {
  const auto process = startRegistered();
  process->execute("1");
  std::filesystem::rename(state_ + "/outbox", folder_.file("renamed"));
  process->execute("2");
  EXPECT_EQ(foundAfterKill(), "2");
}

TEST_F(DeferredChanges, AreFoundAfterTheStorageFolderWasRenamed) {
  const auto process = startRegistered();
  process->execute("1");
  std::filesystem::rename(state_, folder_.file("renamed"));
  process->execute("2");
  EXPECT_EQ(foundAfterKill(), "2");
  EXPECT_EQ(start(killedNow())->outbox.counters().queued, 2u);
}

// The path of the values is not compared with each event, that of the request is.
TEST_F(DeferredChanges, AreFoundWithEarlierValuesWhenOnlyTheRequestIsComparedWithItsPath) {
  const auto process = startRegistered();
  process->execute("1");
  const test::CheckInterval endless{test::CheckInterval::kEndless};
  process->execute("2");
  std::filesystem::rename(state_, folder_.file("renamed"));
  process->execute("3");
  EXPECT_EQ(foundAfterKill(), "3");
  const auto next = start(killedNow());
  EXPECT_EQ(next->outbox.counters().queued, 3u);
  EXPECT_EQ(next->defaults.objectForKey("visits"), "1");
}

TEST_F(DeferredChanges, TruncationAtAnyByteLosesNoEarlierValueOrRequest) {
  const auto process = startRegistered();
  process->execute("1", "first");
  const std::string name = "/outbox/" + JXOutboxSegment::nameOf(1);
  const auto before = std::filesystem::file_size(state_ + name);
  process->execute("2", "second");
  const std::string whole = contentOf(state_ + name);
  for (std::size_t size = before; size < whole.size(); ++size) {
    const std::string copy = killedNow();
    writeFile(copy + name, whole.substr(0, size));
    std::filesystem::permissions(
        copy + name, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const auto next = start(copy);
    EXPECT_EQ(next->outbox.counters().queued, 1u) << size;
    EXPECT_EQ(next->outbox.take()->body, "first") << size;
    const JXString value = next->value();
    EXPECT_TRUE(value == JXString("1") || value == JXString("2")) << size;
  }
}

class DeferredChangesOnAFailingDisk : public DeferredChanges,
                                      public ::testing::WithParamInterface<FailingDisk::Write> {};

INSTANTIATE_TEST_SUITE_P(Failing, DeferredChangesOnAFailingDisk,
                         ::testing::Values(FailingDisk::Write::Nothing, FailingDisk::Write::Half));

TEST_P(DeferredChangesOnAFailingDisk, LoseNothingWhenTheDiskIsFullFromAnyCallOn) {
  long calls = 0;
  for (long first = 0; first <= calls && first < 100; ++first) {
    std::filesystem::remove_all(state_);
    const auto process = startRegistered();
    process->execute("1", "first");
    {
      FailingDisk disk(first, std::numeric_limits<long>::max(), GetParam());
      EXPECT_NE(process->execute("2", "second"), 0u) << first;
      process->defaults.maintain();
      EXPECT_NE(process->execute("3", "third"), 0u) << first;
      process->outbox.sync();
      process->defaults.maintain();
      calls = std::max(calls, disk.calls());
      EXPECT_EQ(process->value(), "3") << first;
      disk.heal();
      process->outbox.sync();
      process->defaults.maintain();
    }
    EXPECT_EQ(inFile(), "3") << first;
    const auto next = start(killedNow());
    EXPECT_EQ(next->value(), "3") << first;
    EXPECT_EQ(next->outbox.counters().queued, 3u) << first;
  }
  EXPECT_GT(calls, 4);
}

// A value that was stored before the disk was full is found, or a later one.
TEST_P(DeferredChangesOnAFailingDisk, KillFindsNoValueOlderThanTheOneThatWasStored) {
  long calls = 0;
  for (long first = 0; first <= calls && first < 100; ++first) {
    std::filesystem::remove_all(state_);
    const auto process = startRegistered();
    process->execute("1", "first");
    {
      FailingDisk disk(first, std::numeric_limits<long>::max(), GetParam());
      process->defaults.maintain();
      process->execute("2", "second");
      calls = std::max(calls, disk.calls());
      disk.heal();
    }
    const JXString found = foundAfterKill();
    EXPECT_TRUE(found == JXString("1") || found == JXString("2")) << first;
  }
  EXPECT_GT(calls, 2);
}

TEST_F(DeferredChanges, DeletingAFullFileWritesThemAlsoIfTheDiskIsFull) {
  const auto process = startRegistered();
  process->execute("1", std::string(2'000'000, '.'));
  process->outbox.markDelivered(process->outbox.take()->id);
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing);
    process->outbox.add(kTestUrl, "next");
    EXPECT_EQ(disk.failed(), 1);
  }
  EXPECT_EQ(inFile(), "1");
}

}  // namespace
}  // namespace jx
