// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Disk faults while a ServerSide executes events, and recovery from them.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "jx/core/storage/JXOutbox.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/fault/FaultTable.h"
#include "tests/fault/SmallDisk.h"
#include "tests/fault/StorageScenario.h"
#include "tests/support/JXFailingDisk.h"

namespace jx::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Texts = std::vector<std::string>;

std::string logMessages(std::size_t number) {
  return counted(number, "log message", "log messages");
}

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A full disk: a small file system that is filled or, if mounting is not allowed, simulated errors.
class FullDisk : public StorageScenario {
 protected:
  FullDisk() {
    useState(disk().path() + "/state");
    // Without the permission to mount, system calls fail on request.
    if (!disk().isMounted()) failing().heal();
  }
  // Both outlive the library.
  static SmallDisk& disk() {
    static SmallDisk mounted(storage().makeFolder("disk"), 16);
    return mounted;
  }
  static FailingDisk& failing() {
    static auto* const calls = new FailingDisk(0, 0, FailingDisk::Write::Half);
    return *calls;
  }
  void fill() {
    if (disk().isMounted()) {
      ASSERT_TRUE(disk().fill());
    } else {
      failing().fail();
    }
  }
  void empty() {
    if (disk().isMounted()) {
      disk().empty();
    } else {
      failing().heal();
    }
  }
  std::string means() const {
    return disk().isMounted() ? "a disk of 16 MiB was full" : "every call failed with ENOSPC";
  }
};

TEST_F(FullDisk, KeepsThousandEventsInMemoryUntilThereIsSpace) {
  const auto serverSide = make();
  executeMany(*serverSide, 10);
  EXPECT_TRUE(onDisk() == executed());
  fill();
  executeMany(*serverSide, 1'100);
  const JXOutboxCounters full = counters().outbox;
  // The last page of a file may still have had space for some events.
  const std::uint64_t fitted = 1'100 - full.inMemory - full.droppedNoStorage;
  EXPECT_EQ(full.inMemory, 1'000u);
  EXPECT_LE(fitted, 2u);
  EXPECT_EQ(full.queued, 1'010 + fitted);
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("No space left on device")));
  const std::size_t messages = storageLines().size();
  empty();
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  const Texts kept = executed(10 + fitted, full.droppedNoStorage);
  EXPECT_TRUE(onDisk() == kept);
  expectEachDeliveredOnce(kept);
  writeRow("9.01", "full disk, 1111 events", means() + " for 1100 events",
           "kept the latest " + std::to_string(full.inMemory) + " in memory, " +
               logMessages(messages) + "; after space was freed, wrote and delivered them",
           full.queued);
}

TEST_F(FullDisk, LogsOneMessageEachTimeTheDiskIsFull) {
  const auto serverSide = make();
  for (int time = 0; time < 3; ++time) {
    executeMany(*serverSide, 1);
    fill();
    executeMany(*serverSide, 20);
    empty();
    executeMany(*serverSide, 1);
    ASSERT_TRUE(waitUntilOnDisk());
  }
  EXPECT_EQ(storageLines().size(), 3u);
  EXPECT_TRUE(onDisk() == executed());
  const std::uint64_t queued = counters().outbox.queued;
  const std::size_t messages = storageLines().size();
  expectEachDeliveredOnce(executed());
  writeRow("9.02", "disk full three times", means() + " three times, with space freed in between",
           logMessages(messages) + ", every event on disk at the end", queued);
}

TEST_F(FullDisk, DeliversFromMemoryWhenFullFromTheStart) {
  fill();
  const auto serverSide = make();
  executeMany(*serverSide, 50);
  EXPECT_EQ(counters().outbox.inMemory, 50u);
  const std::uint64_t queued = counters().outbox.queued;
  expectEachDeliveredOnce(executed());
  EXPECT_EQ(storageLines().size(), 1u);
  writeRow("9.03", "disk full from the start to the end", means(),
           "delivered from memory, " + logMessages(storageLines().size()), queued);
}

class BrokenDisk : public StorageScenario {};

TEST_F(BrokenDisk, WritesNoPartialEventAtTheFileSizeLimit) {
  // An application that sets such a limit must ignore its signal.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlim_t before = limit.rlim_cur;
  const auto serverSide = make();
  executeMany(*serverSide, 3);
  limit.rlim_cur = 20'000;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  executeMany(*serverSide, 47);
  const JXOutboxCounters limited = counters().outbox;
  EXPECT_GT(limited.inMemory, 0u);
  EXPECT_EQ(limited.queued, 50u);
  EXPECT_EQ(onDisk().size(), 50 - limited.inMemory);
  // A partial write reports one of these errors.
  EXPECT_THAT(storageLines(), ElementsAre(AnyOf(HasSubstr("File too large"),
                                                HasSubstr("No space left on device"))));
  limit.rlim_cur = before;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  EXPECT_TRUE(onDisk() == executed());
  EXPECT_EQ(counters().outbox.damaged, 0u);
  expectEachDeliveredOnce(executed());
  writeRow("9.04", "file size limit", "allowed no file larger than 20000 bytes",
           "kept " + std::to_string(limited.inMemory) + " of 50 in memory, " +
               logMessages(storageLines().size()) +
               "; after the limit was removed, wrote and delivered them",
           limited.queued);
}

TEST_F(BrokenDisk, KeepsEventsInMemoryWhileFolderIsReadOnly) {
  ::chmod(storage().path().c_str(), 0755);
  ::chmod(server.caFile().c_str(), 0644);
  std::uint64_t queued = 0;
  {
    const OrdinaryUser user(state());
    ::chmod(state().c_str(), 0555);
    const auto serverSide = make();
    executeMany(*serverSide, 20);
    queued = counters().outbox.queued;
    EXPECT_EQ(counters().outbox.inMemory, 20u);
    EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Permission denied")));
    ::chmod(state().c_str(), 0755);
    executeMany(*serverSide, 1);
    ASSERT_TRUE(waitUntilOnDisk());
    EXPECT_TRUE(onDisk() == executed());
    expectEachDeliveredOnce(executed());
  }
  writeRow("9.05", "read-only folder", "allowed no changes in the storage folder",
           "kept 20 events in memory, " + logMessages(storageLines().size()) +
               "; once writable, wrote and delivered them",
           queued);
}

TEST_F(BrokenDisk, LogsOneMessageWhenOnlyTheOutboxIsReadOnly) {
  ::chmod(storage().path().c_str(), 0755);
  ::chmod(server.caFile().c_str(), 0644);
  const OrdinaryUser user(state());
  const std::string outbox = state() + "/outbox";
  ASSERT_EQ(::mkdir(outbox.c_str(), 0555), 0);
  const auto serverSide = make();
  executeMany(*serverSide, 20);
  EXPECT_EQ(counters().outbox.inMemory, 20u);
  EXPECT_TRUE(std::filesystem::exists(state() + "/defaults"));
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Permission denied")));
  ::chmod(outbox.c_str(), 0755);
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Permission denied")));
  expectEachDeliveredOnce(executed());
}

TEST_F(BrokenDisk, RecreatesRemovedFolderWithAllEvents) {
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  removeState();
  executeMany(*serverSide, 3);
  const std::uint64_t queued = counters().outbox.queued;
  EXPECT_EQ(queued, 8u);
  // The transfer thread writes requests of a deleted file again, a moment later.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (onDisk().size() < 8 && std::chrono::steady_clock::now() < deadline) {
  }
  EXPECT_TRUE(onDisk() == executed());
  EXPECT_LE(storageLines().size(), 1u) << "a sync at that moment finds no folder";
  expectEachDeliveredOnce(executed());
  writeRow("9.06", "storage folder removed", "lost the folder with 5 queued events",
           "recreated it with all " + std::to_string(queued) + " events, " +
               logMessages(storageLines().size()) + ", delivered them",
           queued);
}

TEST_F(BrokenDisk, KeepsEventsWhileFolderIsReplacedByFile) {
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  replaceStateByAFile();
  executeMany(*serverSide, 3);
  const std::uint64_t queued = counters().outbox.queued;
  EXPECT_EQ(queued, 8u);
  EXPECT_EQ(counters().outbox.inMemory, 8u) << "the files of the first five are deleted";
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Not a directory")));
  fs::remove(state());
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  expectEachDeliveredOnce(executed());
  writeRow("9.07", "storage folder replaced by a file", "had a file in place of the folder",
           "kept " + std::to_string(queued) + " events, " + logMessages(storageLines().size()) +
               "; once the file was removed, created the folder and delivered them",
           queued);
}

TEST_F(BrokenDisk, LosesOnlyTheDamagedEventOfASegment) {
  const std::string outbox = state() + "/outbox";
  {
    JXOutbox earlier(outbox, JXOutboxBounds(), clock);
    for (const char* id : {"one", "two", "three", "four", "five"})
      earlier.add(server.url("/events?jx_s=1234&token=key"), bodyOf(id));
  }
  const std::string segment = outbox + "/segment-0000000000000001";
  std::string content = contentOf(segment);
  content[content.find("three")] ^= 1;
  std::ofstream(segment, std::ios::binary | std::ios::trunc) << content;
  const auto serverSide = make();
  executeMany(*serverSide, 1);
  const std::uint64_t queued = counters().outbox.queued;
  EXPECT_EQ(queued, 5u);
  EXPECT_EQ(counters().outbox.damaged, 1u);
  EXPECT_THAT(storageLines(), ElementsAre("2 outbox " + outbox + ": damaged data in " + segment +
                                          "; quarantined in a .damaged-* file"));
  expectEachDeliveredOnce(
      {bodyOf("one"), bodyOf("two"), bodyOf("four"), bodyOf("five"), executed().front()});
  writeRow(
      "9.08", "damaged segment", "changed one bit in one of 5 queued events",
      "quarantined that event, " + logMessages(storageLines().size()) + ", delivered the others",
      queued);
}

TEST_F(BrokenDisk, DeliversEventsWhenDefaultsFileIsDamaged) {
  storage().write("state/defaults", std::string(5'000, '\xA5'));
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
  EXPECT_THAT(storageLines(),
              ElementsAre("2 user defaults " + state() + "/defaults: damaged data in " + state() +
                          "/defaults; quarantined in a .damaged-* file"));
  const std::uint64_t queued = counters().outbox.queued;
  expectEachDeliveredOnce(executed());
  writeRow("9.09", "damaged defaults file", "had 5000 bytes of invalid data in the defaults file",
           "quarantined them, " + logMessages(storageLines().size()) +
               ", started as a first visit, delivered everything",
           queued);
}

}  // namespace
}  // namespace jx::test
