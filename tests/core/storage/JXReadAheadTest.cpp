// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "jx/core/storage/JXReadAhead.h"
#include "tests/core/storage/JXOutboxFixture.h"

namespace jx {
namespace {

// Counts the calls that read files and list folders.
class CountedDisk {
 public:
  CountedDisk() {
    reads = lists = 0;
    JXFileCalls& calls = JXFileCalls::current();
    calls.read = [](int descriptor, void* into, std::size_t size, off_t offset) {
      ++reads;
      return JXFileCalls::system().read(descriptor, into, size, offset);
    };
    calls.list = [](int folder, std::vector<std::string>& names) {
      ++lists;
      return JXFileCalls::system().list(folder, names);
    };
  }
  ~CountedDisk() { JXFileCalls::current() = JXFileCalls::system(); }
  CountedDisk(const CountedDisk&) = delete;
  CountedDisk& operator=(const CountedDisk&) = delete;

  inline static int reads = 0;
  inline static int lists = 0;
};

class ReadAhead : public OutboxTest {
 protected:
  std::string segment() const { return box_ + "/segment-0000000000000001"; }
  // Replaces the first occurrence of `text` in the segment's file.
  void overwrite(const std::string& text, const std::string& by) const {
    std::fstream file(segment(), std::ios::in | std::ios::out | std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const std::size_t at = bytes.find(text);
    ASSERT_NE(at, std::string::npos);
    file.clear();
    file.seekp(static_cast<std::streamoff>(at));
    file << by;
  }
};

TEST_F(ReadAhead, ReadsRequestsThatFollowEachOtherWithOneCall) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c", "d", "e"})
    add(*outbox, body);
  const CountedDisk disk;
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c", "d", "e"}));
  EXPECT_EQ(disk.reads, 1);
}

TEST_F(ReadAhead, ReadsARequestThatWasAddedAfterTheRun) {
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_EQ(outbox->take()->body, "a");
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"b", "c"}));
}

TEST_F(ReadAhead, ReadsRequestsAcrossTheEndOfARun) {
  const auto outbox = open();
  Bodies bodies;
  for (char letter = 'a'; letter <= 'f'; ++letter)
    bodies.emplace_back(JXReadAhead::kRun / 4, letter);
  bodies.emplace_back(JXReadAhead::kRun, 'g');  // does not fit in a run
  bodies.emplace_back("h");
  for (const std::string& body : bodies)
    add(*outbox, body);
  EXPECT_EQ(takeAll(*outbox), bodies);
}

TEST_F(ReadAhead, LosesOnlyTheDamagedRequestOfARun) {
  const auto outbox = open();
  for (const char* body : {"first", "second", "third"})
    add(*outbox, body);
  overwrite("second", "SECOND");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"first", "third"}));
  EXPECT_EQ(outbox->counters().droppedUnreadable, 1u);
  EXPECT_EQ(filesNamed(box_, ".damaged-"), 1u);
}

TEST_F(ReadAhead, AppliesAPurgeMarkBetweenTwoRequestsOfARun) {
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_EQ(outbox->take()->body, "a");
  std::string error;
  EXPECT_EQ(purgeOutbox(box_, error).marked, 2u);
  add(*outbox, "c");
  EXPECT_EQ(takeAll(*outbox), Bodies{"c"});
  EXPECT_EQ(outbox->counters().purged, 2u);
}

TEST_F(ReadAhead, ReturnsNothingOfAPurgedSegment) {
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_EQ(outbox->take()->body, "a");
  outbox->purge();
  // At the same places, in a new file of the same name.
  add(*outbox, "c");
  add(*outbox, "d");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"c", "d"}));
}

// Folder times advance in steps, so a recent change may hide another one.
TEST_F(ReadAhead, NoticesAMarkAfterARecentChangeWithoutListingTheFolder) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c"})
    add(*outbox, body);
  const CountedDisk disk;
  // The folder has always changed at this moment, which is in the future.
  const auto status = [](int folder, const char* name, struct stat* result) {
    const int returned = JXFileCalls::system().status(folder, name, result);
    if (returned == 0 && S_ISDIR(result->st_mode)) {
#ifdef __APPLE__
      result->st_mtimespec = {4'000'000'000, 0};
#else
      result->st_mtim = {4'000'000'000, 0};
#endif
    }
    return returned;
  };
  JXFileCalls::current().status = status;
  EXPECT_EQ(outbox->take()->body, "a");
  EXPECT_EQ(disk.lists, 1);
  EXPECT_EQ(outbox->take()->body, "b");
  EXPECT_EQ(disk.lists, 1);
  std::string error;
  EXPECT_EQ(purgeOutbox(box_, error).marked, 3u);
  EXPECT_EQ(outbox->take(), std::nullopt);
  EXPECT_EQ(outbox->counters().purged, 3u);
}

TEST_F(ReadAhead, RecordsDeliveredRequestsWithOneWrite) {
  const auto outbox = open();
  for (const char* body : {"a", "b", "c", "d"})
    add(*outbox, body);
  JXDeliveredRequests delivered;
  for (std::size_t i = 0; i < 3; ++i)
    delivered.ids[i] = outbox->take()->id;
  delivered.ids[3] = 4'711;  // not queued
  static int writes;
  writes = 0;
  JXFileCalls::current().write = [](int descriptor, const iovec* parts, int count) {
    ++writes;
    return JXFileCalls::system().write(descriptor, parts, count);
  };
  outbox->markDelivered(delivered);
  JXFileCalls::current() = JXFileCalls::system();
  EXPECT_EQ(writes, 1);
  EXPECT_EQ(delivered.ids[2], 3u);
  EXPECT_EQ(delivered.ids[3], 0u);
  // As another process, or the next one after a kill, reads the file.
  EXPECT_EQ(listed(), Bodies{"d"});
  EXPECT_EQ(outbox->counters().delivered, 3u);
}

}  // namespace
}  // namespace jx
