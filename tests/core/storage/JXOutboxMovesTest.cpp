// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>

#include "jx/core/storage/JXFrame.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXPathWatch.h"
#include "jx/core/storage/JXQuarantine.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSegment = 1024 * 1024;

// The path of the storage folder is watched, or compared for each request.
enum class Detection { Watch, Comparison };

// An outbox in a storage folder that is renamed, replaced or deleted while it is in use.
class OutboxMoves : public OutboxTest, public ::testing::WithParamInterface<Detection> {
 protected:
  std::unique_ptr<JXOutbox> open(const JXOutboxBounds& bounds = {}) const {
    std::shared_ptr<JXPathWatch> watch;
    // In a slow test, paths would be compared after some time.
    const auto noTimePasses = [] { return std::chrono::milliseconds(0); };
    if (isWatched()) watch = std::make_shared<JXPathWatch>(state_, "outbox", noTimePasses);
    return std::make_unique<JXOutbox>(state_, bounds, clock_, nullptr, true, "", "outbox", watch);
  }
  static bool isWatched() { return GetParam() == Detection::Watch; }
  // The folder, the locks and two segments, and the watch.
  static std::size_t neededDescriptors() { return isWatched() ? 5 : 4; }
  // Adds requests that fill so many segments, and returns their bodies.
  static Bodies fill(JXOutbox& outbox, std::size_t segments) {
    Bodies bodies;
    for (std::size_t i = 0; i < 8 * segments; ++i) {
      bodies.push_back(std::to_string(i) + std::string(kSegment / 8, 'x'));
      add(outbox, bodies.back());
    }
    return bodies;
  }
  Bodies found() const {
    std::string error;
    Bodies bodies;
    for (const JXOutboxListing& each : listOutbox(state_ + "/outbox", error))
      bodies.push_back(each.body);
    EXPECT_EQ(error, "");
    return bodies;
  }
  static std::size_t openDescriptors() {
    const fs::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }

  const std::string state_ = folder_.file("state");
};

TEST_P(OutboxMoves, ARenamedStorageFolderLosesNothingForTheNextStart) {
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  fs::rename(state_, folder_.file("renamed"));
  add(*outbox, "c");
  EXPECT_EQ(found(), (Bodies{"a", "b", "c"}));
  EXPECT_EQ(filesNamed(folder_.file("renamed") + "/outbox", "segment-"), 0u);
  outbox->markDelivered(outbox->take()->id);
  EXPECT_EQ(found(), (Bodies{"b", "c"}));
}

TEST_P(OutboxMoves, ARenamedOutboxIsMovedBackBySync) {
  const auto outbox = open();
  add(*outbox, "a");
  fs::rename(state_ + "/outbox", folder_.file("renamed"));
  EXPECT_TRUE(outbox->needsSync());
  outbox->sync();
  EXPECT_EQ(found(), Bodies{"a"});
  EXPECT_EQ(takeAll(*outbox), Bodies{"a"});
}

// The event goes to a new segment, in the new folder.
TEST_P(OutboxMoves, FullSegmentsAreMovedBackByTheNextEvent) {
  const auto outbox = open();
  Bodies bodies = fill(*outbox, 2);
  while (filesNamed(state_ + "/outbox", "segment-") < 3)
    add(*outbox, bodies.emplace_back(kSegment / 8, 'y'));
  add(*outbox, bodies.emplace_back(kSegment, 'z'));
  fs::rename(state_, folder_.file("renamed"));
  add(*outbox, bodies.emplace_back("last"));
  EXPECT_EQ(sorted(found()), sorted(bodies));
}

TEST_P(OutboxMoves, TheNextEventRestoresWhatCouldNotBeRestored) {
  long call = 0;
  for (bool failed = true; failed; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    fs::remove_all(folder_.file("renamed"));
    fs::remove_all(state_);
    const auto outbox = open();
    Bodies bodies = fill(*outbox, 3);
    fs::rename(state_, folder_.file("renamed"));
    {
      const FailingDisk disk(call, call + 1, FailingDisk::Write::Nothing, EIO);
      add(*outbox, bodies.emplace_back("during"));
      failed = disk.failed() != 0;
    }
    add(*outbox, bodies.emplace_back("after"));
    // What is in memory is written by the next sync.
    if (outbox->counters().inMemory != 0) outbox->sync();
    EXPECT_EQ(sorted(found()), sorted(bodies));
  }
  EXPECT_GT(call, 5);
}

TEST_P(OutboxMoves, AFolderThatCannotBeOpenedIsLoggedOnceDespiteASync) {
  writeFile(state_, "not a folder");
  const auto outbox = open();
  outbox->sync();
  add(*outbox, "a");
  outbox->sync();
  EXPECT_EQ(log_.with("3 outbox"), 1u);
  fs::remove(state_);
  add(*outbox, "b");
  outbox->sync();
  EXPECT_EQ(sorted(found()), (Bodies{"a", "b"}));
  EXPECT_EQ(log_.with("3 outbox"), 1u);
}

TEST_P(OutboxMoves, AnIdleOutboxIsMovedBackWhenARequestIsTaken) {
  const auto outbox = open();
  const Bodies bodies = fill(*outbox, 6);
  outbox->sync();
  fs::remove_all(state_);
  // Reads a segment that was closed before.
  EXPECT_EQ(outbox->take()->body, bodies.front());
  EXPECT_EQ(found(), bodies);
}

TEST_P(OutboxMoves, ADeletedFolderIsRestoredWithTheSegmentsThatAreNotOpen) {
  const auto outbox = open();
  const Bodies bodies = fill(*outbox, 12);
  ASSERT_GE(filesNamed(state_ + "/outbox", "segment-"), 12u);
  const std::uint64_t first = outbox->take()->id;
  outbox->markDelivered(first);
  fs::remove_all(state_);
  outbox->sync();
  const Bodies expected(bodies.begin() + 1, bodies.end());
  EXPECT_EQ(found(), expected);
  EXPECT_EQ(takeAll(*outbox), expected);
  EXPECT_EQ(outbox->counters().storageErrors, 0u);
}

TEST_P(OutboxMoves, DoesNotTouchTheSegmentsOfAnotherProcessInTheNewFolder) {
  const auto mine = open();
  add(*mine, "mine 1");
  add(*mine, "mine 2");
  fs::rename(state_, folder_.file("renamed"));
  const auto theirs = open();
  add(*theirs, "theirs 1");
  add(*mine, "mine 3");
  add(*theirs, "theirs 2");
  EXPECT_EQ(sorted(found()), (Bodies{"mine 1", "mine 2", "mine 3", "theirs 1", "theirs 2"}));
  EXPECT_EQ(takeAll(*mine), (Bodies{"mine 1", "mine 2", "mine 3"}));
  mine->purge();
  EXPECT_EQ(found(), (Bodies{"theirs 1", "theirs 2"}));
  EXPECT_EQ(takeAll(*theirs), (Bodies{"theirs 1", "theirs 2"}));
}

TEST_P(OutboxMoves, KeepsADeletedFolderReadableUntilItCanBeRestored) {
  const auto outbox = open();
  const Bodies bodies = fill(*outbox, 6);
  fs::remove_all(state_);
  writeFile(state_, "not a folder");
  outbox->sync();
  EXPECT_EQ(log_.with("cannot open the folder: Not a directory"), 1u);
  EXPECT_EQ(outbox->counters().queued, bodies.size());
  fs::remove(state_);
  outbox->sync();
  EXPECT_EQ(found(), bodies);
}

TEST_P(OutboxMoves, UsesTheFolderOfItsStartAfterAChangeOfTheCurrentFolder) {
  const fs::path before = fs::current_path();
  fs::create_directory(folder_.file("elsewhere"));
  fs::current_path(folder_.path());
  const auto outbox = std::make_unique<JXOutbox>("state/outbox", JXOutboxBounds(), clock_);
  add(*outbox, "a");
  fs::current_path(folder_.file("elsewhere"));
  add(*outbox, "b");
  outbox->sync();
  EXPECT_EQ(found(), (Bodies{"a", "b"}));
  EXPECT_TRUE(fs::is_empty(folder_.file("elsewhere")));
  fs::current_path(before);
}

TEST_P(OutboxMoves, WorksInMemoryWhenTheFolderIsASymbolicLink) {
  fs::create_directory(folder_.file("target"));
  fs::create_directory_symlink(folder_.file("target"), state_);
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b"}));
  EXPECT_TRUE(fs::is_empty(folder_.file("target")));
  EXPECT_EQ(log_.with("cannot open the folder: It is a symbolic link"), 1u);
}

TEST_P(OutboxMoves, WorksInMemoryWhenOthersCanWriteToTheFolder) {
  fs::create_directory(state_);
  ASSERT_EQ(::chmod(state_.c_str(), 0777), 0);
  const auto outbox = open();
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_TRUE(fs::is_empty(state_));
  EXPECT_EQ(log_.with("cannot open the folder: Other users can write to it"), 1u);
  ASSERT_EQ(::chmod(state_.c_str(), 0700), 0);
  outbox->sync();
  EXPECT_EQ(found(), (Bodies{"a", "b"}));
}

TEST_P(OutboxMoves, LeavesTheTargetsOfLinksInTheFolder) {
  const std::string target = folder_.file("target");
  writeFile(target, "content");
  for (const char* const name : {"dead", "dead.new", "lock", "segment-0000000000000001",
                                 "segment-0000000000000001.purge", "stopped-00000001"}) {
    for (const bool isSymbolic : {true, false}) {
      fs::remove_all(state_);
      fs::create_directories(state_ + "/outbox");
      fs::permissions(state_, fs::perms::owner_all);
      fs::permissions(state_ + "/outbox", fs::perms::owner_all);
      const std::string link = state_ + "/outbox/" + name;
      isSymbolic ? fs::create_symlink(target, link) : fs::create_hard_link(target, link);
      const auto outbox = open();
      add(*outbox, "a");
      add(*outbox, "b");
      outbox->moveToDeadLetters(outbox->take()->id, 400);
      outbox->sync();
      std::string ignored;
      purgeOutbox(state_ + "/outbox", ignored);
      EXPECT_EQ(contentOf(target), "content") << name << isSymbolic;
      EXPECT_EQ(outbox->counters().added, 2u);
    }
  }
}

TEST_P(OutboxMoves, NeedsFewDescriptorsForManySegments) {
  const std::size_t before = openDescriptors();
  {
    const auto outbox = open();
    const Bodies bodies = fill(*outbox, 30);
    outbox->sync();
    EXPECT_LE(openDescriptors() - before, neededDescriptors());
  }
  const auto outbox = open();
  EXPECT_EQ(outbox->counters().queued, 240u);
  outbox->rememberDropped();
  EXPECT_LE(openDescriptors() - before, neededDescriptors());
  outbox->purge();
  EXPECT_LE(openDescriptors() - before, neededDescriptors());
  EXPECT_EQ(outbox->takeDropped().size(), 32u);
}

TEST_P(OutboxMoves, DeliversThirtySegmentsWithSixteenDescriptors) {
  { fill(*open(), 30); }
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlim_t before = std::exchange(limit.rlim_cur, 16);
  ASSERT_LE(openDescriptors(), 8u) << "the test itself leaves eight";
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  {
    const auto outbox = open();
    EXPECT_EQ(takeAll(*outbox).size(), 240u);
    EXPECT_EQ(outbox->counters().storageErrors, 0u);
  }
  limit.rlim_cur = before;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  EXPECT_EQ(log_.with("outbox"), 0u);
}

TEST_P(OutboxMoves, AdoptsASegmentWithTheLargestNumber) {
  {
    const auto outbox = open();
    for (int i = 0; i < 5; ++i)
      add(*outbox, std::to_string(i));
  }
  const std::string outboxPath = state_ + "/outbox/";
  fs::rename(outboxPath + "segment-0000000000000001", outboxPath + "segment-ffffffffffffffff");
  {
    const auto outbox = open();
    for (int i = 5; i < 10; ++i)
      add(*outbox, std::to_string(i));
    EXPECT_EQ(found().size(), 10u);
  }
  fs::rename(outboxPath + "segment-0000000000000001", outboxPath + "segment-4000000000000000");
  const auto outbox = open();
  EXPECT_EQ(takeAll(*outbox).size(), 10u);
  fill(*outbox, 3);
  EXPECT_EQ(found().size(), 34u);
}

TEST_P(OutboxMoves, RenamesAFileThatIsTooLargeWithoutReadingIt) {
  { add(*open(), "a"); }
  const std::string large = state_ + "/outbox/segment-0000000000000007";
  writeFile(large, "x");
  fs::permissions(large, fs::perms::owner_read | fs::perms::owner_write);
  fs::resize_file(large, std::uintmax_t{4} << 30);
  const auto outbox = open();
  EXPECT_EQ(takeAll(*outbox), Bodies{"a"});
  EXPECT_FALSE(fs::exists(large));
  EXPECT_TRUE(fs::exists(large + ".damaged-0"));
  EXPECT_EQ(outbox->counters().damaged, 1u);
}

TEST_P(OutboxMoves, ReadsNoMoreThanFourTimesTheQueueAtTheStart) {
  JXOutboxBounds bounds;
  bounds.maxBytes = 32 * kSegment;
  { fill(*open(bounds), 2); }
  const std::string name = state_ + "/outbox/segment-00000000000000";
  // Older files with invalid data; two of them exceed the limit.
  fs::rename(name + "01", name + "f1");
  fs::rename(name + "02", name + "f2");
  for (const char* const number : {"11", "12", "13"}) {
    writeFile(name + number, "x");
    fs::permissions(name + number, fs::perms::owner_read | fs::perms::owner_write);
    fs::resize_file(name + number, 60 * kSegment);
  }
  const auto outbox = open(bounds);
  EXPECT_EQ(outbox->counters().queued, 16u);
  EXPECT_FALSE(fs::exists(name + "11")) << "the oldest";
  EXPECT_TRUE(fs::exists(name + "13.damaged-0"));
}

// Each byte could begin a frame that contains the rest of the file.
TEST_P(OutboxMoves, GivesUpOnCraftedLengths) {
  { add(*open(), "a"); }
  std::string crafted(kJXJournalMagic);
  const std::string frame = [] {
    std::string bytes;
    encodeFrame({"x"}, bytes);
    return bytes.substr(0, 4);
  }();
  const std::uint32_t length = 8 * 1024 * 1024;
  while (crafted.size() < 2 * length) {
    crafted += frame;
    for (unsigned shift = 0; shift < 32; shift += 8)
      crafted += static_cast<char>(length >> shift);
    crafted += std::string(4, 'x');
  }
  const std::string path = folder_.file("crafted");
  writeFile(path, crafted);
  int error = 0;
  const JXFile file = JXFile::open(path, JXFile::Access::Read, error);
  JXFrameReader reader(file, crafted.size());
  JXFrame ignored;
  EXPECT_FALSE(reader.next(ignored));
  EXPECT_LE(reader.falseBytes(),
            2 * crafted.size() + 4 * 1024 * 1024 + length + kJXFrameHeaderSize);
  EXPECT_GE(reader.falseBytes(), crafted.size()) << "the limit was reached";
}

TEST_P(OutboxMoves, DeadLettersHaveNoMoreBytesThanTheQueue) {
  JXOutboxBounds bounds;
  bounds.maxBytes = kSegment;
  const auto outbox = open(bounds);
  Bodies bodies;
  std::uintmax_t largest = 0;
  for (int i = 0; i < 60; ++i) {
    bodies.push_back(std::to_string(i) + std::string(100'000, 'x'));
    add(*outbox, bodies.back());
    outbox->moveToDeadLetters(outbox->take()->id, 400);
    largest = std::max(largest, fs::file_size(state_ + "/outbox/dead"));
  }
  EXPECT_LE(largest, kSegment);
  std::string error;
  const auto dead = listDeadLetters(state_ + "/outbox", error);
  ASSERT_GE(dead.size(), 5u);
  EXPECT_EQ(dead.back().body, bodies.back());
  EXPECT_EQ(outbox->counters().rejected, 60u);
}

TEST_P(OutboxMoves, QuarantinedFilesUseLimitedSpace) {
  fs::create_directories(state_ + "/outbox");
  fs::permissions(state_ + "/outbox", fs::perms::owner_all);
  fs::permissions(state_, fs::perms::owner_all);
  for (int i = 1; i <= 6; ++i) {
    const std::string path = state_ + "/outbox/segment-000000000000000" + std::to_string(i);
    writeFile(path, std::string(12 * kSegment, static_cast<char>('a' + i)));
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  }
  const auto outbox = open();
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::directory_iterator(state_ + "/outbox"))
    bytes += entry.file_size();
  EXPECT_LE(bytes, kJXMaxQuarantinedBytes);
  EXPECT_EQ(filesNamed(state_ + "/outbox", ".damaged-"), 2u);
  EXPECT_EQ(outbox->counters().quarantinedDeleted, 4u);
}

TEST_P(OutboxMoves, RewritesSegmentsThatAreMostlyObsolete) {
  JXOutboxBounds bounds;
  bounds.maxBytes = kSegment;
  bounds.maxRequests = 10'000;
  const auto outbox = open(bounds);
  Bodies kept;
  // One request of each segment is never delivered.
  for (int i = 0; i < 40; ++i) {
    kept.push_back("kept " + std::to_string(i));
    add(*outbox, kept.back());
    const std::uint64_t keptId = outbox->take()->id;
    for (int j = 0; j < 9; ++j) {
      add(*outbox, std::string(120'000, 'x'));
      outbox->markDelivered(outbox->take()->id);
    }
    outbox->requeue(keptId);
    outbox->take();
    outbox->sync();
  }
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::directory_iterator(state_ + "/outbox"))
    bytes += entry.file_size();
  EXPECT_LE(bytes, 12 * kSegment);
  EXPECT_EQ(sorted(found()), sorted(kept));
}

// Renames, replaces or deletes a folder or the file that is written, in each place.
TEST_P(OutboxMoves, EachChangeOfThePathLosesNothingForTheNextStart) {
  const std::string elsewhere = folder_.file("elsewhere");
  const std::string outboxPath = state_ + "/outbox";
  const std::string segment = outboxPath + "/segment-0000000000000001";
  const std::function<void()> changes[] = {
      [&] { fs::rename(outboxPath, elsewhere); },
      [&] {
        fs::rename(state_, elsewhere);
        fs::create_directory(state_);
        fs::permissions(state_, fs::perms::owner_all);
      },
      [&] { fs::remove_all(state_); },
      [&] { fs::remove(segment); },
      [&] { fs::rename(segment, outboxPath + "/other"); },
      [&] {
        writeFile(elsewhere, "");
        fs::permissions(elsewhere, fs::perms::owner_read | fs::perms::owner_write);
        fs::rename(elsewhere, segment);
      },
  };
  int number = 0;
  for (const auto& change : changes) {
    SCOPED_TRACE(number++);
    fs::remove_all(state_);
    fs::remove_all(elsewhere);
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
    change();
    add(*outbox, "c");
    EXPECT_EQ(sorted(found()), (Bodies{"a", "b", "c"}));
    fs::remove_all(elsewhere);
    change();
    add(*outbox, "d");
    EXPECT_EQ(sorted(found()), (Bodies{"a", "b", "c", "d"}));
  }
}

int statusCalls = 0;

TEST_P(OutboxMoves, ComparesThePathOfARequestOnlyIfItIsNotWatched) {
  const auto outbox = open();
  add(*outbox, "a");
  JXFileCalls::current().status = [](int folder, const char* name, struct stat* status) {
    ++statusCalls;
    return JXFileCalls::system().status(folder, name, status);
  };
  statusCalls = 0;
  for (int i = 0; i < 10; ++i)
    add(*outbox, "b");
  JXFileCalls::current() = JXFileCalls::system();
#if defined(__linux__)
  EXPECT_EQ(statusCalls, isWatched() ? 0 : 10);
#else
  EXPECT_EQ(statusCalls, 10);
#endif
}

INSTANTIATE_TEST_SUITE_P(Paths, OutboxMoves,
                         ::testing::Values(Detection::Watch, Detection::Comparison),
                         [](const auto& each) {
                           return each.param == Detection::Watch ? "Watched" : "Compared";
                         });

}  // namespace
}  // namespace jx
