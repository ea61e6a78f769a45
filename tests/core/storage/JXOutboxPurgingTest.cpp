// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string_view>

#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class OutboxPurging : public OutboxTest {
 protected:
  JXOutboxPurge purge() const {
    std::string error;
    const JXOutboxPurge done = purgeOutbox(box_, error);
    EXPECT_EQ(error, "");
    return done;
  }
  std::size_t marks() const { return filesNamed(box_, ".purge"); }

  /// While it exists, no mark can be opened.
  class UnreadableMarks {
   public:
    UnreadableMarks() {
      JXFileCalls::current().open = [](int folder, const char* name, int flags, mode_t mode) {
        const std::string_view file = name;
        const bool isMark = file.size() > 6 && file.substr(file.size() - 6) == ".purge";
        if (!isMark) return JXFileCalls::system().open(folder, name, flags, mode);
        errno = EIO;
        return -1;
      };
    }
    ~UnreadableMarks() { JXFileCalls::current() = JXFileCalls::system(); }
    UnreadableMarks(const UnreadableMarks&) = delete;
    UnreadableMarks& operator=(const UnreadableMarks&) = delete;
  };
};

TEST_F(OutboxPurging, DeletesRequestsThatNoProcessOwns) {
  {
    const auto outbox = open();
    for (const char* body : {"a", "b", "refused"})
      add(*outbox, body);
    const auto first = outbox->take();
    outbox->moveToDeadLetters(first->id, 400);
  }
  writeFile(box_ + "/segment-0000000000000009.damaged-12", "torn");
  const JXOutboxPurge done = purge();
  EXPECT_EQ(done.removed, 2u);
  EXPECT_EQ(done.marked, 0u);
  EXPECT_EQ(done.deadLetters, 1u);
  EXPECT_EQ(files(), 0u);
}

TEST_F(OutboxPurging, OwnerDiscardsMarkedRequestsBeforeTakingAnother) {
  const auto outbox = open();
  outbox->rememberDropped();
  add(*outbox, event("a"));
  add(*outbox, "b");
  const JXOutboxPurge done = purge();
  EXPECT_EQ(done.removed, 0u);
  EXPECT_EQ(done.marked, 2u);
  EXPECT_EQ(listed(), Bodies{});
  // A purge does not affect later requests.
  add(*outbox, "c");
  EXPECT_EQ(listed(), Bodies{"c"});
  EXPECT_EQ(takeAll(*outbox), Bodies{"c"});
  EXPECT_EQ(outbox->counters().purged, 2u);
  EXPECT_EQ(marks(), 0u);
  const auto drops = outbox->takeDropped();
  ASSERT_EQ(drops.size(), 2u);
  EXPECT_EQ(drops[0].eventId, "a");
  EXPECT_EQ(drops[0].reason, JXDropReason::Purged);
}

TEST_F(OutboxPurging, SyncDiscardsMarkedRequestsOfAnIdleQueue) {
  const auto outbox = open();
  add(*outbox, "a");
  purge();
  outbox->sync();
  EXPECT_EQ(outbox->counters().queued, 0u);
  EXPECT_EQ(outbox->counters().purged, 1u);
}

TEST_F(OutboxPurging, SecondPurgeMarksOnlyLaterRequests) {
  const auto outbox = open();
  add(*outbox, "a");
  EXPECT_EQ(purge().marked, 1u);
  EXPECT_EQ(purge().marked, 0u);
  add(*outbox, "b");
  EXPECT_EQ(purge().marked, 1u);
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), Bodies{"c"});
  EXPECT_EQ(outbox->counters().purged, 2u);
}

TEST_F(OutboxPurging, NextProcessAppliesAMarkThatTheOwnerDidNotProcess) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    purge();
    add(*outbox, "b");
  }
  EXPECT_EQ(marks(), 1u);
  const auto outbox = open();
  EXPECT_EQ(takeAll(*outbox), Bodies{"b"});
  EXPECT_EQ(marks(), 0u);
}

TEST_F(OutboxPurging, DeletesACompletelyPurgedSegmentAtTheNextStart) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    purge();
  }
  EXPECT_EQ(takeAll(*open()), Bodies{});
  EXPECT_EQ(segments(), 0u);
  EXPECT_EQ(marks(), 0u);
}

TEST_F(OutboxPurging, IgnoresAMarkOfAnEarlierFileWithTheSameName) {
  const auto outbox = open();
  add(*outbox, "old");
  const std::string mark = box_ + "/segment-0000000000000001.purge";
  purge();
  const std::string text = contentOf(mark);
  takeAll(*outbox);
  outbox->purge();
  writeFile(mark, text);
  add(*outbox, "new");
  EXPECT_EQ(takeAll(*outbox), Bodies{"new"});
}

TEST_F(OutboxPurging, IgnoresAnInvalidMark) {
  const auto outbox = open();
  add(*outbox, "a");
  for (const char* text : {"", "x", "1", "1 2\n", "99999999999999999999 99999999999999999999\n"}) {
    writeFile(box_ + "/segment-0000000000000001.purge", text);
    const std::string segment = box_ + "/segment-0000000000000001";
    int error = -1;
    EXPECT_EQ(readPurgeMark(segment, JXFile::identityAt(segment), error), 0u) << text;
    EXPECT_EQ(error, 0);
    EXPECT_EQ(listed(), Bodies{"a"}) << text;
  }
}

TEST_F(OutboxPurging, KeepsFilesWhoseNameOnlyContainsThatOfQuarantinedOnes) {
  add(*open(), "a");
  const std::vector<std::string> names{".damaged-1", "photo.damaged-1.jpg", "photo.damaged-",
                                       "photo.damaged-1x"};
  for (const std::string& name : names)
    writeFile(box_ + "/" + name, "of the application");
  writeFile(box_ + "/segment-0000000000000009.damaged-12", "torn");
  purge();
  open()->purge();
  for (const std::string& name : names)
    EXPECT_TRUE(fs::exists(box_ + "/" + name)) << name;
  EXPECT_FALSE(fs::exists(box_ + "/segment-0000000000000009.damaged-12"));
}

TEST_F(OutboxPurging, IgnoresADamagedMark) {
  const auto outbox = open();
  add(*outbox, "a");
  const std::string segment = box_ + "/segment-0000000000000001";
  const JXFileIdentity identity = JXFile::identityAt(segment);
  const std::string inode = std::to_string(identity.number);
  int error = -1;
  writeFile(segment + ".purge", inode + " 100\n");
  EXPECT_EQ(readPurgeMark(segment, identity, error), 100u);
  for (const std::string& text : {inode + " 100", inode + " -1\n", inode + " 0100\n",
                                  inode + "  100\n", " " + inode + " 100\n", inode + " 100 \n",
                                  inode + " 99999999999999999999\n", inode + " 100\n\n"}) {
    writeFile(segment + ".purge", text);
    EXPECT_EQ(readPurgeMark(segment, identity, error), 0u) << text;
    EXPECT_EQ(error, 0);
    EXPECT_EQ(listed(), Bodies{"a"}) << text;
  }
}

TEST_F(OutboxPurging, ReadsAMarkAgainThatCouldNotBeRead) {
  const auto outbox = open();
  add(*outbox, "a");
  purge();
  // Old enough that the folder counts as unchanged afterwards.
  const auto hourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(box_, hourAgo);
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, EIO);
    EXPECT_EQ(takeAll(*outbox), Bodies{"a"}) << "the mark cannot be read";
    EXPECT_EQ(disk.failed(), 1);
  }
  outbox->sync();
  EXPECT_EQ(outbox->counters().queued, 0u);
  EXPECT_EQ(outbox->counters().purged, 1u);
}

TEST_F(OutboxPurging, RequestsAreNotAddedBelowAMarkThatCannotBeRead) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
    purge();
  }
  // A power loss has removed the end of the segment, which was not synced.
  const std::string segment = box_ + "/segment-0000000000000001";
  fs::resize_file(segment, fs::file_size(segment) - 1);
  std::unique_ptr<JXOutbox> outbox;
  {
    const UnreadableMarks disk;
    outbox = open();
    EXPECT_EQ(outbox->counters().queued, 1u);
  }
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), Bodies{"c"});
  EXPECT_EQ(outbox->counters().purged, 1u);
}

TEST_F(OutboxPurging, DoesNotApplyTheMarkOfAnotherFileThatHasItsName) {
  const auto outbox = open();
  add(*outbox, "mine");
  fs::rename(box_ + "/segment-0000000000000001", box_ + "/moved");
  writeFile(box_ + "/segment-0000000000000001", "theirs");
  ASSERT_EQ(writePurgeMark(box_ + "/segment-0000000000000001"), 0);
  EXPECT_EQ(takeAll(*outbox), Bodies{"mine"});
  EXPECT_TRUE(fs::exists(box_ + "/segment-0000000000000001.purge"));
}

TEST_F(OutboxPurging, DoesNotCountAPurgedRequestInFlightAsDelivered) {
  const auto outbox = open();
  add(*outbox, "a");
  const auto request = outbox->take();
  purge();
  EXPECT_FALSE(outbox->take());
  EXPECT_FALSE(outbox->markDelivered(request->id));
  EXPECT_EQ(outbox->counters().purged, 1u);
  EXPECT_EQ(outbox->counters().delivered, 0u);
}

TEST_F(OutboxPurging, ReportsAMissingFolder) {
  std::string error;
  const JXOutboxPurge done = purgeOutbox(folder_.file("missing"), error);
  EXPECT_EQ(done.removed + done.marked + done.deadLetters, 0u);
  EXPECT_EQ(error, "cannot read " + folder_.file("missing") + ": No such file or directory");
}

TEST_F(OutboxPurging, PurgeOfTheOwnQueueDeletesQuarantineFiles) {
  const auto outbox = open();
  add(*outbox, "a");
  writeFile(box_ + "/segment-0000000000000001.damaged-12", "torn");
  outbox->purge();
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 0u);
}

}  // namespace
}  // namespace jx
