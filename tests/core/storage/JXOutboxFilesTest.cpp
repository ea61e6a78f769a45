// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class OutboxFiles : public OutboxTest {
 protected:
  std::string segment(int number) const {
    char name[32];
    std::snprintf(name, sizeof name, "/segment-%016x", static_cast<unsigned>(number));
    return box_ + name;
  }
  static std::string big(const std::string& name) { return name + std::string(400'000, '.'); }
  static std::string nameOf(const std::string& body) { return body.substr(0, body.find('.')); }
};

TEST_F(OutboxFiles, StartsANewSegmentAfterAMebibyte) {
  const auto outbox = open();
  for (const char* name : {"a", "b", "c", "d"})
    add(*outbox, big(name));
  EXPECT_EQ(segments(), 2u);
  EXPECT_EQ(fs::file_size(segment(1)) / 400'000, 3u);
}

TEST(OutboxWithoutFolder, WritesNoDeadLetters) {
  JXOutbox outbox("", JXOutboxBounds(), std::make_shared<JXManualClock>(1'790'000'000'000));
  outbox.add("https://host/", "rejected");
  EXPECT_TRUE(outbox.moveToDeadLetters(outbox.take()->id, 400));
  outbox.sync();
  outbox.purge();
  EXPECT_EQ(outbox.counters().queued, 0u);
  EXPECT_FALSE(fs::exists("/dead"));
}

TEST_F(OutboxFiles, DeletesASegmentWithItsLastRequest) {
  const auto outbox = open();
  for (const char* name : {"a", "b", "c", "d"})
    add(*outbox, big(name));
  for (int i = 0; i < 3; ++i)
    outbox->markDelivered(outbox->take()->id);
  EXPECT_FALSE(fs::exists(segment(1)));
  EXPECT_TRUE(fs::exists(segment(2)));
  EXPECT_EQ(nameOf(outbox->take()->body), "d");
}

TEST_F(OutboxFiles, DeletesTheEmptyCurrentSegmentOnceItIsFull) {
  const auto outbox = open();
  for (const char* name : {"a", "b", "c"})
    outbox->markDelivered(add(*outbox, big(name)));
  EXPECT_EQ(segments(), 1u);
  add(*outbox, "d");
  EXPECT_FALSE(fs::exists(segment(1)));
  EXPECT_EQ(listed(), Bodies{"d"});
}

TEST_F(OutboxFiles, LeavesNoSegmentAtCloseWhenTheQueueIsEmpty) {
  {
    const auto outbox = open();
    outbox->markDelivered(add(*outbox, "a"));
    EXPECT_EQ(segments(), 1u);
  }
  EXPECT_EQ(segments(), 0u);
}

TEST_F(OutboxFiles, ReturnsAdoptedRequestsBeforeOwnOnes) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
  }
  const auto outbox = open();
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c"}));
  EXPECT_EQ(listed(), (Bodies{"a", "b", "c"}));
}

TEST_F(OutboxFiles, OrdersRequestsByFileNotByClock) {
  {
    const auto first = open();
    add(*first, "a");
    // A second outbox while the first is open, with the clock set back in between.
    const auto second = open();
    clock_->advance(-365 * kDayMs);
    add(*second, "b");
    clock_->set(0);
    add(*second, "c");
  }
  const auto outbox = open();
  clock_->set(kTestNowMs);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c"}));
}

TEST_F(OutboxFiles, FrequentStartsDoNotCreateManyFiles) {
  for (int i = 0; i < 50; ++i)
    add(*open(), std::to_string(i));
  EXPECT_EQ(segments(), 1u);
  EXPECT_EQ(listed().size(), 50u);
}

TEST_F(OutboxFiles, DoesNotTakeRequestsOfAnotherOutbox) {
  const auto one = open();
  add(*one, "a");
  const auto two = open();
  add(*two, "b");
  EXPECT_EQ(takeAll(*two), Bodies{"b"});
  EXPECT_EQ(takeAll(*one), Bodies{"a"});
  EXPECT_EQ(listed(), (Bodies{"a", "b"}));
}

TEST_F(OutboxFiles, PurgeKeepsRequestsOfAnotherOutbox) {
  const auto one = open();
  add(*one, "a");
  const auto two = open();
  add(*two, "b");
  two->purge();
  EXPECT_EQ(listed(), Bodies{"a"});
  EXPECT_EQ(takeAll(*one), Bodies{"a"});
}

TEST_F(OutboxFiles, IgnoresOtherFilesInTheFolder) {
  fs::create_directory(box_);
  writeFile(box_ + "/segment-1", "x");
  writeFile(box_ + "/segment-000000000000000g", "x");
  writeFile(box_ + "/notes", "x");
  fs::create_directory(segment(7));
  {
    const auto outbox = open();
    add(*outbox, "a");
    EXPECT_EQ(takeAll(*outbox), Bodies{"a"});
    outbox->purge();
  }
  EXPECT_EQ(files(), 4u);
}

TEST_F(OutboxFiles, QuarantinesATornEndAndDeliversTheRest) {
  {
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
  }
  fs::resize_file(segment(1), fs::file_size(segment(1)) - 1);
  const auto outbox = open();
  EXPECT_EQ(outbox->counters().damaged, 1u);
  EXPECT_EQ(outbox->counters().queued, 1u);
  EXPECT_EQ(log_.with("2 outbox"), 1u);
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "c"}));
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 1u);
  EXPECT_EQ(listed(), (Bodies{"a", "c"}));
}

TEST_F(OutboxFiles, DamageInTheMiddleLosesOneRequestAndNoAcknowledgement) {
  {
    const auto outbox = open();
    for (const char* body : {"first", "second", "third", "fourth"})
      add(*outbox, body);
    outbox->markDelivered(outbox->take()->id);
  }
  std::string content = contentOf(segment(1));
  content[content.find("third")] = 'T';
  writeFile(segment(1), content);
  EXPECT_EQ(listed(), (Bodies{"second", "fourth"}));
  {
    const auto outbox = open();
    EXPECT_EQ(outbox->counters().damaged, 1u);
    EXPECT_EQ(takeAll(*outbox), (Bodies{"second", "fourth"}));
  }
  // The same damage is not quarantined again.
  EXPECT_EQ(open()->counters().damaged, 0u);
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 1u);
}

TEST_F(OutboxFiles, TakeSkipsARequestDamagedWhileOpen) {
  const auto outbox = open();
  for (const char* body : {"first", "second", "third"})
    add(*outbox, body);
  const std::size_t place = contentOf(segment(1)).find("second");
  std::fstream(segment(1), std::ios::in | std::ios::out | std::ios::binary)
      .seekp(static_cast<std::streamoff>(place))
      .put('S');
  EXPECT_EQ(takeAll(*outbox), (Bodies{"first", "third"}));
  EXPECT_EQ(outbox->counters().damaged, 1u);
  EXPECT_EQ(outbox->counters().storageErrors, 1u);
  EXPECT_EQ(outbox->counters().queued, 2u);
}

TEST_F(OutboxFiles, AcknowledgementDoesNotApplyToLaterRequests) {
  add(*open(), "first");
  {
    int error = 0;
    JXJournal journal(JXFile::open(segment(1), JXFile::Access::Append, error), segment(1));
    ASSERT_EQ(error, 0);
    journal.recover(JXJournal::Writers::One, [](const JXFrame&) {});
    const std::uint64_t next = journal.size() + kJXFrameHeaderSize + kJXAcknowledgementHeadSize + 4;
    const std::string payload = encodeAcknowledgement({static_cast<std::uint32_t>(next)});
    ASSERT_EQ(journal.append({payload}, nullptr), 0);
    ASSERT_EQ(journal.size(), next);
  }
  add(*open(), "second");
  EXPECT_EQ(listed(), (Bodies{"first", "second"}));
  EXPECT_EQ(takeAll(*open()), (Bodies{"first", "second"}));
}

TEST_F(OutboxFiles, WorksWithInvalidDataInEveryFile) {
  fs::create_directory(box_);
  writeFile(segment(3), std::string(5'000, '\xFF'));
  writeFile(segment(4), "");
  writeFile(box_ + "/dead", "garbage");
  const auto outbox = open();
  outbox->moveToDeadLetters(add(*outbox, "a"), 400);
  add(*outbox, "b");
  EXPECT_EQ(takeAll(*outbox), Bodies{"b"});
  EXPECT_EQ(dead(), Bodies{"a"});
  EXPECT_EQ(outbox->counters().damaged, 2u);
}

TEST_F(OutboxFiles, DelaysDeadLettersWhileTheirFileIsLocked) {
  const auto outbox = open();
  outbox->moveToDeadLetters(add(*outbox, "a"), 400);
  outbox->sync();
  int error = 0;
  JXFile other = JXFile::open(box_ + "/dead", JXFile::Access::AppendExisting, error);
  ASSERT_TRUE(other.tryLock(JXFile::Lock::Exclusive));
  outbox->moveToDeadLetters(add(*outbox, "b"), 400);
  EXPECT_EQ(dead(), Bodies{"a"});
  EXPECT_EQ(outbox->counters().rejected, 2u);
  EXPECT_EQ(outbox->counters().queued, 0u);
  EXPECT_FALSE(outbox->take().has_value());
  EXPECT_TRUE(outbox->needsSync());
  // After a kill at this point, the request would be sent again.
  EXPECT_EQ(listed(), Bodies{"b"});
  other.unlock();
  outbox->sync();
  EXPECT_EQ(dead(), (Bodies{"a", "b"}));
  EXPECT_TRUE(listed().empty());
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_EQ(outbox->counters().storageErrors, 0u);
}

TEST_F(OutboxFiles, ListingIgnoresATornEndAndChangesNothing) {
  const auto outbox = open();
  add(*outbox, "a");
  const std::string before = contentOf(segment(1));
  // The start of a frame that another process is writing.
  std::ofstream(segment(1), std::ios::binary | std::ios::app) << before.substr(8, 20);
  EXPECT_EQ(listed(), Bodies{"a"});
  EXPECT_EQ(contentOf(segment(1)), before + before.substr(8, 20));
  EXPECT_EQ(files(), 1u);
}

TEST_F(OutboxFiles, ListingAMissingFolderReturnsAnError) {
  std::string error;
  EXPECT_TRUE(listOutbox(folder_.file("nowhere"), error).empty());
  EXPECT_EQ(error, "cannot read " + folder_.file("nowhere") + ": No such file or directory");
  EXPECT_TRUE(listDeadLetters(folder_.file("nowhere"), error).empty());
  EXPECT_EQ(error, "cannot read " + folder_.file("nowhere") + ": No such file or directory");
}

TEST_F(OutboxFiles, AddRecreatesARemovedFolder) {
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  fs::remove_all(box_);
  add(*outbox, "c");
  EXPECT_EQ(listed(), (Bodies{"a", "b", "c"}));
  EXPECT_TRUE(outbox->needsSync());
  outbox->sync();
  EXPECT_FALSE(outbox->needsSync());
  EXPECT_EQ(sorted(listed()), (Bodies{"a", "b", "c"}));
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c"}));
}

TEST_F(OutboxFiles, SyncRecreatesARemovedFolderWithItsRequests) {
  {
    const auto outbox = open();
    for (int i = 0; i < 200; ++i)
      add(*outbox, std::to_string(i));
    outbox->markDelivered(outbox->take()->id);
    const std::uint64_t one = outbox->take()->id;
    fs::remove_all(box_);
    outbox->sync();
    EXPECT_EQ(listed().size(), 199u);
    outbox->markDelivered(one);
    EXPECT_EQ(listed().size(), 198u);
  }
  const auto outbox = open();
  const Bodies left = takeAll(*outbox);
  ASSERT_EQ(left.size(), 198u);
  EXPECT_EQ(left.front(), "2");
  EXPECT_EQ(left.back(), "199");
}

TEST_F(OutboxFiles, DeliversRequestsOfARemovedFolderWithoutSync) {
  const auto outbox = open();
  add(*outbox, "a");
  fs::remove_all(box_);
  EXPECT_EQ(outbox->take()->body, "a");
  outbox->requeue(1);
  outbox->markDelivered(outbox->take()->id);
  EXPECT_EQ(outbox->counters().queued, 0u);
}

}  // namespace
}  // namespace jx
