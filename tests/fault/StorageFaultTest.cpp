// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// What a disk may do to the queue while a ServerSide executes events, and after it is healed.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "jx/core/storage/JXOutbox.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/fault/FaultTable.h"
#include "tests/fault/SmallDisk.h"
#include "tests/fault/StorageStory.h"
#include "tests/support/JXFailingDisk.h"

namespace jx::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Texts = std::vector<std::string>;

std::string inLines(std::size_t number) { return counted(number, "log line", "log lines"); }

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A disk without room, by whatever means this machine has: a small one that is filled, or else the
// error that a full one gives.
class FullDisk : public StorageStory {
 protected:
  FullDisk() {
    useState(disk().path() + "/state");
    // Where nothing can be mounted: a table of calls that fail when they are told to.
    if (!disk().isMounted()) failing().heal();
  }
  // Both end after the library.
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

TEST_F(FullDisk, KeepsAThousandInMemoryAndWritesThemWhenThereIsRoom) {
  const auto serverSide = make();
  executeMany(*serverSide, 10);
  EXPECT_TRUE(onDisk() == executed());
  fill();
  executeMany(*serverSide, 1'100);
  const JXOutboxCounters full = counters().outbox;
  // What the last page of a file had room for went to the disk still.
  const std::uint64_t fitted = 1'100 - full.inMemory - full.droppedNoStorage;
  EXPECT_EQ(full.inMemory, 1'000u);
  EXPECT_LE(fitted, 2u);
  EXPECT_EQ(full.queued, 1'010 + fitted);
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("No space left on device")));
  const std::size_t said = storageLines().size();
  empty();
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  const Texts kept = executed(10 + fitted, full.droppedNoStorage);
  EXPECT_TRUE(onDisk() == kept);
  expectEachDeliveredOnce(kept);
  writeRow("9.01", "full disk, 1111 events", means() + " for 1100 of them",
           "kept the latest " + std::to_string(full.inMemory) + " in memory, " + inLines(said) +
               "; with room, wrote and delivered them",
           full.queued);
}

TEST_F(FullDisk, EachTimeItIsFullIsOneLine) {
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
  const std::uint64_t held = counters().outbox.queued;
  const std::size_t said = storageLines().size();
  expectEachDeliveredOnce(executed());
  writeRow("9.02", "disk full three times", means() + " three times, with room in between",
           inLines(said) + ", every event on the disk at the end", held);
}

TEST_F(FullDisk, FromTheStartDeliversFromMemory) {
  fill();
  const auto serverSide = make();
  executeMany(*serverSide, 50);
  EXPECT_EQ(counters().outbox.inMemory, 50u);
  const std::uint64_t held = counters().outbox.queued;
  expectEachDeliveredOnce(executed());
  EXPECT_EQ(storageLines().size(), 1u);
  writeRow("9.03", "disk full from the start to the end", means(),
           "delivered from memory, " + inLines(storageLines().size()), held);
}

class BrokenDisk : public StorageStory {};

TEST_F(BrokenDisk, ALimitOfTheFilesSizeTearsNothing) {
  // A host that sets such a limit has to ignore its signal.
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
  // A write that ends in the middle of a frame says no more than that.
  EXPECT_THAT(storageLines(), ElementsAre(AnyOf(HasSubstr("File too large"),
                                                HasSubstr("No space left on device"))));
  limit.rlim_cur = before;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  EXPECT_TRUE(onDisk() == executed());
  EXPECT_EQ(counters().outbox.damaged, 0u);
  expectEachDeliveredOnce(executed());
  writeRow("9.04", "file size limit", "took no file beyond 20000 bytes",
           "kept " + std::to_string(limited.inMemory) + " of 50 in memory, " +
               inLines(storageLines().size()) + "; without the limit, wrote and delivered them",
           limited.queued);
}

TEST_F(BrokenDisk, AReadOnlyFolderIsServedFromMemoryUntilItCanBeWritten) {
  ::chmod(storage().path().c_str(), 0755);
  ::chmod(server.caFile().c_str(), 0644);
  std::uint64_t held = 0;
  {
    const OrdinaryUser user(state());
    ::chmod(state().c_str(), 0555);
    const auto serverSide = make();
    executeMany(*serverSide, 20);
    held = counters().outbox.queued;
    EXPECT_EQ(counters().outbox.inMemory, 20u);
    EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Permission denied")));
    ::chmod(state().c_str(), 0755);
    executeMany(*serverSide, 1);
    ASSERT_TRUE(waitUntilOnDisk());
    EXPECT_TRUE(onDisk() == executed());
    expectEachDeliveredOnce(executed());
  }
  writeRow("9.05", "read-only folder", "let nothing be made in the state folder",
           "kept 20 events in memory, " + inLines(storageLines().size()) +
               "; once writable, wrote and delivered them",
           held);
}

TEST_F(BrokenDisk, AFolderThatIsRemovedIsMadeAgainWithAllThatItHeld) {
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  removeState();
  executeMany(*serverSide, 3);
  const std::uint64_t held = counters().outbox.queued;
  EXPECT_EQ(held, 8u);
  // A request whose file is gone is written again by the transfer thread, a moment later.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (onDisk().size() < 8 && std::chrono::steady_clock::now() < deadline) {
  }
  EXPECT_TRUE(onDisk() == executed());
  EXPECT_LE(storageLines().size(), 1u) << "a sync in that moment finds no folder";
  expectEachDeliveredOnce(executed());
  writeRow("9.06", "state folder removed", "lost the folder with 5 queued events",
           "made it again with all " + std::to_string(held) + ", " +
               inLines(storageLines().size()) + ", delivered them",
           held);
}

TEST_F(BrokenDisk, AFileInTheFoldersPlaceHoldsEverythingInMemory) {
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  replaceStateByAFile();
  executeMany(*serverSide, 3);
  const std::uint64_t held = counters().outbox.queued;
  EXPECT_EQ(held, 8u);
  EXPECT_EQ(counters().outbox.inMemory, 3u);
  EXPECT_THAT(storageLines(), ElementsAre(HasSubstr("Not a directory")));
  fs::remove(state());
  executeMany(*serverSide, 1);
  ASSERT_TRUE(waitUntilOnDisk());
  expectEachDeliveredOnce(executed());
  writeRow("9.07", "state folder replaced by a file", "had a file where the folder was",
           "kept " + std::to_string(held) + " events, " + inLines(storageLines().size()) +
               "; without the file, made the folder and delivered them",
           held);
}

TEST_F(BrokenDisk, ADamagedSegmentCostsTheDamagedEventOnly) {
  const std::string outbox = state() + "/outbox";
  {
    JXOutbox earlier(outbox, JXOutboxBounds(), clock);
    for (const char* id : {"one", "two", "three", "four", "five"})
      earlier.add(server.url(), bodyOf(id));
  }
  const std::string segment = outbox + "/segment-0000000000000001";
  std::string content = contentOf(segment);
  content[content.find("three")] ^= 1;
  std::ofstream(segment, std::ios::binary | std::ios::trunc) << content;
  const auto serverSide = make();
  executeMany(*serverSide, 1);
  const std::uint64_t held = counters().outbox.queued;
  EXPECT_EQ(held, 5u);
  EXPECT_EQ(counters().outbox.damaged, 1u);
  EXPECT_THAT(storageLines(), ElementsAre("2 outbox " + outbox + ": damaged data in " + segment +
                                          "; quarantined in a .damaged-* file"));
  expectEachDeliveredOnce(
      {bodyOf("one"), bodyOf("two"), bodyOf("four"), bodyOf("five"), executed().front()});
  writeRow("9.08", "damaged segment", "changed one bit in one of 5 queued events",
           "set that event aside, " + inLines(storageLines().size()) + ", delivered the others",
           held);
}

TEST_F(BrokenDisk, ADamagedFileOfVariablesDelaysNoEvent) {
  storage().write("state/defaults", std::string(5'000, '\xA5'));
  const auto serverSide = make();
  executeMany(*serverSide, 5);
  EXPECT_EQ(variable(kJXPredefinedVariable_NumberVisits), JXString("1"));
  EXPECT_THAT(storageLines(),
              ElementsAre("2 user defaults " + state() + "/defaults: damaged data in " + state() +
                          "/defaults; quarantined in a .damaged-* file"));
  const std::uint64_t held = counters().outbox.queued;
  expectEachDeliveredOnce(executed());
  writeRow("9.09", "damaged defaults file", "had 5000 bytes of rubbish in the file of variables",
           "set them aside, " + inLines(storageLines().size()) +
               ", began as a first visit, delivered everything",
           held);
}

}  // namespace
}  // namespace jx::test
