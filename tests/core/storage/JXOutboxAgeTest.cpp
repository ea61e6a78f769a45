// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDeletedMessage =
    ": old quarantined files deleted: limit of number, size or age";

class OutboxAge : public OutboxTest {
 protected:
  void reject(JXOutbox& outbox, const std::string& body) {
    outbox.moveToDeadLetters(add(outbox, body), 400);
  }
  bool deadFileContains(const std::string& bytes) const {
    return contentOf(box_ + "/dead").find(bytes) != std::string::npos;
  }
  void setFileTime(const std::string& path, std::int64_t ms) const {
    const timespec time{static_cast<std::time_t>(ms / 1'000), 0};
    const timespec times[2] = {time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  }
};

TEST_F(OutboxAge, FirstSyncDeletesTheBytesOfExpiredDeadLetters) {
  {
    const auto outbox = open();
    reject(*outbox, "letter of January");
    clock_->advance(20 * kDayMs);
    reject(*outbox, "letter of February");
  }
  clock_->advance(10 * kDayMs + 1);
  const auto outbox = open();
  EXPECT_TRUE(outbox->needsSync());
  EXPECT_TRUE(deadFileContains("January"));
  outbox->sync();
  EXPECT_EQ(dead(), Bodies{"letter of February"});
  EXPECT_FALSE(deadFileContains("January"));
  EXPECT_FALSE(fs::exists(box_ + "/dead.new"));
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_EQ(outbox->counters().storageErrors, 0u);
}

TEST_F(OutboxAge, KeepsADeadLetterForExactlyThirtyDays) {
  {
    const auto outbox = open();
    reject(*outbox, "a");
  }
  clock_->advance(30 * kDayMs);
  open()->sync();
  EXPECT_EQ(dead(), Bodies{"a"});
  clock_->advance(1);
  open()->sync();
  EXPECT_TRUE(dead().empty());
}

TEST_F(OutboxAge, AppendingADeadLetterDeletesTheExpiredOnes) {
  const auto outbox = open();
  reject(*outbox, "first");
  clock_->advance(31 * kDayMs);
  reject(*outbox, "second");
  EXPECT_EQ(dead(), Bodies{"second"});
  EXPECT_FALSE(deadFileContains("first"));
  reject(*outbox, "third");
  EXPECT_EQ(dead(), (Bodies{"second", "third"}));
}

TEST_F(OutboxAge, UsesTheConfiguredAgeForDeadLetters) {
  JXOutboxBounds bounds;
  bounds.maxAge = std::chrono::hours(1);
  {
    const auto outbox = open(bounds);
    reject(*outbox, "a");
  }
  clock_->advance(3'600'001);
  open(bounds)->sync();
  EXPECT_TRUE(dead().empty());
}

TEST_F(OutboxAge, DeadLettersExpireWhateverTheTimeOfDay) {
  {
    const auto outbox = open();
    clock_->set(5'000);
    reject(*outbox, "of 1970");
    clock_->set(kTestNowMs + 365 * kDayMs);
    reject(*outbox, "of the future");
    clock_->set(kTestNowMs - 31 * kDayMs);
    reject(*outbox, "old");
  }
  clock_->set(kTestNowMs);
  open()->sync();
  EXPECT_EQ(dead(), (Bodies{"of 1970", "of the future", "old"}));
  clock_->advance(30 * kDayMs);
  open()->sync();
  EXPECT_EQ(dead(), (Bodies{"of 1970", "of the future", "old"}));
  clock_->advance(1);
  open()->sync();
  EXPECT_EQ(dead(), Bodies{});
}

TEST_F(OutboxAge, DeletesExpiredDeadLettersAlsoWhenDeadLettersAreDisabled) {
  {
    const auto outbox = open();
    reject(*outbox, "a");
  }
  clock_->advance(31 * kDayMs);
  JXOutboxBounds bounds;
  bounds.maxDeadLetters = 0;
  open(bounds)->sync();
  EXPECT_FALSE(deadFileContains("a"));
}

TEST_F(OutboxAge, TriesAgainWhileAnotherProcessWritesTheDeadLetters) {
  {
    const auto outbox = open();
    reject(*outbox, "a");
  }
  clock_->advance(31 * kDayMs);
  const auto outbox = open();
  int error = 0;
  JXFile other = JXFile::open(box_ + "/dead", JXFile::Access::AppendExisting, error);
  ASSERT_TRUE(other.tryLock(JXFile::Lock::Exclusive));
  outbox->sync();
  EXPECT_EQ(dead(), Bodies{"a"});
  EXPECT_TRUE(outbox->needsSync());
  other.unlock();
  outbox->sync();
  EXPECT_TRUE(dead().empty());
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_EQ(outbox->counters().storageErrors, 0u);
}

TEST_F(OutboxAge, SharesTheFileWithAnOutboxThatDeletedExpiredDeadLetters) {
  const auto one = open();
  reject(*one, "a");
  clock_->advance(20 * kDayMs);
  reject(*one, "b");
  clock_->advance(11 * kDayMs);
  open()->sync();
  reject(*one, "c");
  EXPECT_EQ(dead(), (Bodies{"b", "c"}));
}

TEST_F(OutboxAge, FirstSyncDeletesWhatAnInterruptedRewriteLeft) {
  {
    const auto outbox = open();
    reject(*outbox, "a");
  }
  writeFile(box_ + "/dead.new", contentOf(box_ + "/dead"));
  open()->sync();
  EXPECT_FALSE(fs::exists(box_ + "/dead.new"));
  EXPECT_EQ(dead(), Bodies{"a"});
  writeFile(box_ + "/dead.new", contentOf(box_ + "/dead"));
  fs::remove(box_ + "/dead");
  open()->sync();
  EXPECT_FALSE(fs::exists(box_ + "/dead.new"));
  EXPECT_FALSE(fs::exists(box_ + "/dead"));
}

TEST_F(OutboxAge, FailureAtAnyCallLosesNoYoungDeadLetter) {
  // Opens the file, opens, writes, syncs and renames the new one, and syncs the folder.
  constexpr long kCalls = 6;
  for (long call = 0; call < kCalls; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    fs::remove_all(box_);
    clock_->set(kTestNowMs);
    {
      const auto outbox = open();
      reject(*outbox, "expired");
      clock_->advance(20 * kDayMs);
      reject(*outbox, "young");
    }
    clock_->advance(11 * kDayMs);
    {
      const FailingDisk disk(call, call + 1, FailingDisk::Write::Half);
      const auto outbox = open();
      outbox->sync();
      EXPECT_EQ(disk.failed(), 1);
      EXPECT_EQ(outbox->counters().storageErrors, 1u);
      EXPECT_EQ(dead().back(), "young");
    }
    open()->sync();
    EXPECT_EQ(dead(), Bodies{"young"});
    EXPECT_FALSE(deadFileContains("expired"));
  }
}

TEST_F(OutboxAge, FirstSyncDropsAndReportsExpiredRequests) {
  {
    const auto outbox = open();
    add(*outbox, event("old"));
    clock_->advance(15 * kDayMs);
    add(*outbox, "young");
  }
  clock_->advance(15 * kDayMs + 1);
  const auto outbox = open();
  outbox->rememberDropped();
  EXPECT_TRUE(outbox->needsSync());
  EXPECT_EQ(outbox->counters().queued, 2u);
  outbox->sync();
  EXPECT_EQ(outbox->counters().droppedTooOld, 1u);
  EXPECT_EQ(outbox->counters().queued, 1u);
  const std::vector<JXOutboxDrop> drops = outbox->takeDropped();
  ASSERT_EQ(drops.size(), 1u);
  EXPECT_EQ(drops[0].eventId, "old");
  EXPECT_EQ(drops[0].reason, JXDropReason::TooOld);
  EXPECT_EQ(listed(), Bodies{"young"});
  EXPECT_FALSE(outbox->needsSync());
}

TEST_F(OutboxAge, AnExpiredQueueIsDeletedWithItsFile) {
  {
    const auto outbox = open();
    add(*outbox, "old");
  }
  clock_->advance(31 * kDayMs);
  {
    const auto outbox = open();
    outbox->sync();
    EXPECT_EQ(outbox->counters().droppedTooOld, 1u);
  }
  EXPECT_EQ(segments(), 0u);
}

TEST_F(OutboxAge, FirstSyncDeletesExpiredQuarantinedFiles) {
  fs::create_directory(box_);
  for (const char* name : {"segment-1.damaged-0", "segment-2.damaged-0", "dead.damaged-7"})
    writeFile(box_ + "/" + name, "garbage");
  writeFile(box_ + "/notes", "of the application");
  setFileTime(box_ + "/segment-1.damaged-0", kTestNowMs - 30 * kDayMs - 1'000);
  setFileTime(box_ + "/segment-2.damaged-0", kTestNowMs - 30 * kDayMs);
  setFileTime(box_ + "/dead.damaged-7", 5'000);
  setFileTime(box_ + "/notes", kTestNowMs - 300 * kDayMs);
  const auto outbox = open();
  EXPECT_TRUE(outbox->needsSync());
  outbox->sync();
  EXPECT_FALSE(fs::exists(box_ + "/segment-1.damaged-0"));
  EXPECT_TRUE(fs::exists(box_ + "/segment-2.damaged-0"));
  EXPECT_TRUE(fs::exists(box_ + "/dead.damaged-7"));
  EXPECT_TRUE(fs::exists(box_ + "/notes"));
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_EQ(outbox->counters().quarantinedDeleted, 1u);
  EXPECT_EQ(log_.with(kDeletedMessage), 1u);
}

TEST_F(OutboxAge, CountsTheQuarantinedFilesDeletedForNewerOnes) {
  {
    const auto outbox = open();
    for (const char* id : {"first", "second"})
      add(*outbox, event(id));
  }
  const std::string segment = box_ + "/segment-0000000000000001";
  std::string content = contentOf(segment);
  content[content.find("first")] = 'F';
  writeFile(segment, content);
  for (int i = 0; i < 10; ++i) {
    const std::string path = box_ + "/old" + std::to_string(i) + ".damaged-0";
    writeFile(path, "garbage");
    setFileTime(path, kTestNowMs - (20 - i) * 60'000);
  }
  // Eight files are kept, of which one is new.
  const auto outbox = open();
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 8u);
  EXPECT_FALSE(fs::exists(box_ + "/old2.damaged-0"));
  EXPECT_TRUE(fs::exists(box_ + "/old3.damaged-0"));
  EXPECT_EQ(outbox->counters().quarantinedDeleted, 3u);
  EXPECT_EQ(outbox->counters().damaged, 1u);
  // One of a request that is damaged while the outbox is open.
  content = contentOf(segment);
  content[content.find("second")] = 'S';
  std::ofstream(segment, std::ios::in | std::ios::out | std::ios::binary) << content;
  EXPECT_FALSE(outbox->take());
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 8u);
  EXPECT_FALSE(fs::exists(box_ + "/old3.damaged-0"));
  EXPECT_EQ(outbox->counters().quarantinedDeleted, 4u);
  EXPECT_EQ(log_.with(kDeletedMessage), 1u);
}

TEST_F(OutboxAge, CountsTheQuarantinedFilesDeletedForDamagedDeadLetters) {
  fs::create_directory(box_);
  writeFile(box_ + "/dead", "garbage");
  for (int i = 0; i < 8; ++i)
    writeFile(box_ + "/old" + std::to_string(i) + ".damaged-0", "garbage");
  const auto outbox = open();
  outbox->sync();
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 8u);
  EXPECT_EQ(outbox->counters().quarantinedDeleted, 1u);
  EXPECT_EQ(outbox->counters().damaged, 1u);
}

}  // namespace
}  // namespace jx
