// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStopMarks.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/core/storage/JXLogLines.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using namespace std::chrono_literals;

class StopMarks : public ::testing::Test {
 protected:
  void set(std::uint32_t source, std::uint16_t stops) {
    marks->set({source, stops});
    marks->wait(20s);
    awaitSync();
  }
  // The thread that sets marks shares their ownership while it makes them durable.
  void awaitSync() const {
    while (marks.use_count() > 1)
      std::this_thread::yield();
  }
  std::uint16_t stopsOf(std::uint32_t source) const {
    for (const JXStopMark& mark : JXStopMarks(folder).read()) {
      if (mark.source == source) return mark.stops;
    }
    return 0;
  }
  void writeMark(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories(folder);
    writeFile(folder + "/" + name, content);
  }

  TemporaryFolder temporary;
  const std::string folder = temporary.file("state/outbox");
  const std::shared_ptr<JXStopMarks> marks = std::make_shared<JXStopMarks>(folder);
};

TEST_F(StopMarks, ReadsWhatWasSet) {
  EXPECT_TRUE(marks->read().empty());
  set(0x0012abcd, 1);
  set(7, 65'534);
  EXPECT_EQ(2u, JXStopMarks(folder).read().size());
  EXPECT_EQ(1, stopsOf(0x0012abcd));
  EXPECT_EQ(65'534, stopsOf(7));
}

TEST_F(StopMarks, NeverLowersTheNumberThatAnotherProcessRecorded) {
  set(7, 5);
  set(7, 3);
  EXPECT_EQ(5, stopsOf(7));
  set(7, 6);
  EXPECT_EQ(6, stopsOf(7));
}

TEST_F(StopMarks, ReportsAFolderThatCannotBeRead) {
  bool isComplete = false;
  EXPECT_TRUE(marks->read(isComplete).empty());
  EXPECT_TRUE(isComplete) << "the folder does not exist";
  set(7, 1);
  ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
  EXPECT_TRUE(marks->read(isComplete).empty());
  EXPECT_FALSE(isComplete);
}

TEST_F(StopMarks, WritesOnePrivateFileForEachSource) {
  set(0x0012abcd, 3);
  struct stat status {};
  ASSERT_EQ(0, ::stat((folder + "/stopped-0012abcd").c_str(), &status));
  EXPECT_EQ(0600u, status.st_mode & 0777u);
  EXPECT_EQ("3\n", contentOf(folder + "/stopped-0012abcd"));
}

TEST_F(StopMarks, ReplacesAndRemoves) {
  set(7, 1);
  set(8, 1);
  set(7, 2);
  EXPECT_EQ(2, stopsOf(7));
  set(7, 0);
  EXPECT_EQ(0, stopsOf(7));
  EXPECT_EQ(1, stopsOf(8));
  set(7, 0);
}

TEST_F(StopMarks, AppliesTheLastOfManyChanges) {
  for (std::uint16_t i = 0; i < 500; ++i)
    marks->set({7, static_cast<std::uint16_t>(i % 2)});
  marks->wait(20s);
  awaitSync();
  EXPECT_EQ(1, stopsOf(7));
}

TEST_F(StopMarks, ReadsADamagedFileAsAStopOfEverything) {
  for (const char* content : {"", "1", "x\n", "0\n", "-1\n", "65536\n", "1\n2\n", "1 \n",
                              "99999999999999999999\n", " 1\n", "+1\n", "01\n"}) {
    writeMark("stopped-00000007", content);
    EXPECT_EQ(JXStopMarks::kAllStops, stopsOf(7)) << "content \"" << content << "\"";
  }
  writeMark("stopped-00000007", std::string("1\n\0", 3));
  EXPECT_EQ(JXStopMarks::kAllStops, stopsOf(7));
  writeMark("stopped-00000007", "12\n");
  EXPECT_EQ(12, stopsOf(7));
}

TEST_F(StopMarks, ReadsAnUnreadableFileAsAStopOfEverything) {
  std::filesystem::create_directories(folder + "/stopped-00000007");
  EXPECT_EQ(JXStopMarks::kAllStops, stopsOf(7));
}

TEST_F(StopMarks, IgnoresOtherFiles) {
  for (const char* name : {"stopped-", "stopped-7", "stopped-000000007", "stopped-0000000g",
                           "stopped-0000000A", "segment-0000000000000001", "dead"}) {
    writeMark(name, "1\n");
  }
  EXPECT_TRUE(marks->read().empty());
}

TEST_F(StopMarks, DoesNothingWithoutAFolder) {
  const auto none = std::make_shared<JXStopMarks>("");
  none->set({7, 1});
  none->wait(20s);
  EXPECT_TRUE(none->read().empty());
}

TEST_F(StopMarks, LogsAFailureOncePerCause) {
  writeMark("stopped-00000007", "1\n");
  LogLines lines;
  {
    const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing, EROFS);
    set(7, 2);
    set(7, 3);
    set(8, 1);
    EXPECT_EQ(3, disk.failed());
  }
  EXPECT_EQ(
      1u, lines.with(
              "3 Cannot record the stop in " + folder +
              "/stopped-00000007: Read-only file system; the decision holds in this process only"));
  EXPECT_EQ(1u, lines.all().size());
  EXPECT_EQ(1, stopsOf(7)) << "the earlier mark stays";
  set(7, 4);
  EXPECT_EQ(4, stopsOf(7));
}

TEST_F(StopMarks, LeavesAStopOfEverythingWhenTheDiskIsFull) {
  LogLines lines;
  {
    // Opening the file succeeds, writing does not.
    const FailingDisk disk(1, 1'000, FailingDisk::Write::Nothing, ENOSPC);
    set(7, 2);
  }
  EXPECT_EQ(1u, lines.with("Cannot record the stop"));
  EXPECT_EQ(JXStopMarks::kAllStops, stopsOf(7));
}

}  // namespace
}  // namespace jx
