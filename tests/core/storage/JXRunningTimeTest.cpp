// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXRunningTime.h"

#include <gtest/gtest.h>

#include <limits>

#include "jx/core/storage/JXJournal.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kHourMs = 60LL * 60 * 1'000;

// The clocks of a device that may be restarted.
class DeviceClock final : public JXClock {
 public:
  std::int64_t nowMs() const override { return dayMs; }
  std::int64_t systemMs() const override { return upMs; }
  std::uint32_t systemStart() const override { return startId; }
  void pass(std::int64_t ms) {
    dayMs += ms;
    upMs += ms;
  }
  // The device is off for some time.
  void restart(std::int64_t offMs) {
    dayMs += offMs;
    upMs = 0;
    if (startId != 0) ++startId;
  }

  std::int64_t dayMs = kTestNowMs;
  std::int64_t upMs = 0;
  std::uint32_t startId = 5;
};

class RunningTime : public OutboxTest {
 protected:
  std::unique_ptr<JXOutbox> start(const JXOutboxBounds& bounds = {}) const {
    return std::make_unique<JXOutbox>(box_, bounds, device_);
  }
  // Returns the number of requests that expire in a process that starts now.
  std::uint64_t expiredNow() const {
    const auto outbox = start();
    outbox->sync();
    return outbox->counters().droppedTooOld;
  }
  void execute(const std::string& body) const {
    const auto outbox = start();
    add(*outbox, body);
    outbox->sync();
  }
  // Lets time pass while a process syncs once an hour.
  void run(std::int64_t ms) const {
    const auto outbox = start();
    for (std::int64_t passed = 0; passed < ms; passed += kHourMs) {
      device_->pass(std::min(kHourMs, ms - passed));
      outbox->sync();
    }
  }
  std::vector<JXStoredTime> timesIn(const std::string& name) const {
    std::vector<JXStoredTime> times;
    JXJournal::scan(box_ + "/" + name, [&](const JXFrame& frame) {
      const JXOutboxRecord record = decodeRecord(frame.payload);
      if (record.kind == JXRecordKind::Time) times.push_back(record.time);
    });
    return times;
  }
  // Writes a segment as a version without running times did.
  void writeOldSegment(const std::string& body, std::int64_t createdMs) const {
    fs::create_directories(box_);
    int error = 0;
    const std::string path = box_ + "/segment-0000000000000001";
    JXJournal journal(JXFile::open(path, JXFile::Access::Append, error), path);
    const JXRequestHead head = encodeRequestHead(kTestUrl, createdMs, {});
    ASSERT_EQ(0, journal.append({{head.data(), head.size()}, kTestUrl, body}, nullptr));
  }

  const std::shared_ptr<DeviceClock> device_ = std::make_shared<DeviceClock>();
};

TEST_F(RunningTime, ClockThatIsSetFortyDaysAheadExpiresNothing) {
  const auto outbox = start();
  for (const char* const body : {"a", "b", "c"})
    add(*outbox, body);
  device_->dayMs += 40 * kDayMs;
  outbox->sync();
  add(*outbox, "d");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  EXPECT_EQ(takeAll(*outbox), (Bodies{"a", "b", "c", "d"}));
}

TEST_F(RunningTime, ClockThatIsSetBetweenTwoProcessesExpiresNothing) {
  execute("a");
  device_->dayMs += 40 * kDayMs;
  EXPECT_EQ(expiredNow(), 0u);
  device_->dayMs -= 400 * kDayMs;
  EXPECT_EQ(expiredNow(), 0u);
  EXPECT_EQ(listed(), Bodies{"a"});
}

TEST_F(RunningTime, RequestExpiresAlthoughTheClockIsNeverSet) {
  device_->dayMs = 0;
  execute("a");
  for (int day = 0; day < 30; ++day) {
    device_->pass(kDayMs);
    device_->dayMs = 0;
    EXPECT_EQ(expiredNow(), 0u);
  }
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

TEST_F(RunningTime, RequestExpiresAlthoughTheClockWasSetBack) {
  execute("a");
  device_->dayMs -= 40 * kDayMs;
  device_->pass(30 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

TEST_F(RunningTime, ContinuesAfterTheSystemWasRestarted) {
  execute("a");
  run(20 * kDayMs);
  device_->restart(5 * kDayMs);
  run(9 * kDayMs);
  device_->restart(0);
  EXPECT_EQ(expiredNow(), 0u);
  run(kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

// The system has run for a shorter time than when the time was stored.
TEST_F(RunningTime, NoticesARestartOfASystemWithoutAnId) {
  device_->startId = 0;
  execute("a");
  run(20 * kDayMs);
  device_->restart(0);
  device_->pass(10 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

TEST_F(RunningTime, AdvancesOnADeviceThatRunsForMinutes) {
  execute("a");
  JXOutboxBounds bounds;
  bounds.maxAge = std::chrono::hours(1);
  int starts = 0;
  for (; starts < 100; ++starts) {
    device_->restart(kHourMs);
    device_->pass(120'000);
    const auto outbox = start(bounds);
    outbox->sync();
    if (outbox->counters().droppedTooOld != 0) break;
    device_->pass(120'000);
  }
  // The two minutes after the last sync of each process are not known to the next one.
  EXPECT_EQ(starts, 30);
}

TEST_F(RunningTime, RequestsOfAnEarlierVersionCountAsNewOnce) {
  writeOldSegment("a", kTestNowMs - 90 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  for (int day = 0; day < 30; ++day) {
    EXPECT_EQ(expiredNow(), 0u);
    device_->pass(kDayMs);
  }
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

TEST_F(RunningTime, RequestsCountAsNewOnceWhenTheFileIsLost) {
  execute("a");
  device_->pass(20 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  fs::remove(box_ + "/clock");
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(30 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
}

TEST_F(RunningTime, FailedReadOfTheFileExpiresNothing) {
  execute("a");
  device_->pass(20 * kDayMs);
  for (long call = 0; call < 12; ++call) {
    const FailingDisk disk(call, call + 1, FailingDisk::Write::Half);
    EXPECT_EQ(expiredNow(), 0u);
  }
  EXPECT_EQ(listed(), Bodies{"a"});
}

// Its requests in memory keep their age; the later process does not know it.
TEST_F(RunningTime, FolderThatCannotBeReadAtTheStartExpiresNothing) {
  execute("a");
  run(29 * kDayMs);
  {
    std::unique_ptr<JXOutbox> outbox;
    {
      const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
      outbox = start();
      add(*outbox, "b");
    }
    device_->pass(2 * kDayMs);
    outbox->sync();
    EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
    EXPECT_EQ(outbox->counters().inMemory, 0u);
  }
  EXPECT_EQ(expiredNow(), 1u);
  EXPECT_EQ(listed(), Bodies{"b"});
}

TEST_F(RunningTime, DamagedFileContinuesWithTheTimesThatAreIntact) {
  execute("a");
  run(2 * kHourMs);
  const std::size_t count = timesIn("clock").size();
  ASSERT_GE(count, 3u);
  std::string content = contentOf(box_ + "/clock");
  content[content.size() - 1] ^= 1;
  writeFile(box_ + "/clock", content + "garbage");
  EXPECT_EQ(timesIn("clock").size(), count - 1);
  const std::uint64_t series = timesIn("clock").front().series;
  device_->restart(0);
  device_->pass(5'000);
  execute("b");
  EXPECT_EQ(timesIn("clock").back().series, series);
  EXPECT_EQ(timesIn("clock").back().runningMs, kHourMs + 5'000);
}

TEST_F(RunningTime, IsStoredEveryTenMinutesWhileRequestsAreQueued) {
  const auto outbox = start();
  add(*outbox, "a");
  outbox->sync();
  EXPECT_EQ(timesIn("clock").size(), 1u);
  device_->pass(599'999);
  outbox->sync();
  EXPECT_EQ(timesIn("clock").size(), 1u);
  device_->pass(1);
  outbox->sync();
  ASSERT_EQ(timesIn("clock").size(), 2u);
  EXPECT_EQ(timesIn("clock")[1].runningMs, 600'000);
  outbox->purge();
  device_->pass(kDayMs);
  outbox->sync();
  EXPECT_EQ(timesIn("clock").size(), 2u);
}

TEST_F(RunningTime, FileStaysSmall) {
  const auto outbox = start();
  add(*outbox, "a");
  for (int i = 0; i < 3'000; ++i) {
    device_->pass(600'000);
    outbox->sync();
    ASSERT_LE(fs::file_size(box_ + "/clock"), 65'600u);
  }
  EXPECT_EQ(timesIn("clock").back().runningMs, 3'000 * 600'000LL);
}

TEST_F(RunningTime, SegmentContainsATimeOnlyWhenTheClockWasSet) {
  const auto outbox = start();
  add(*outbox, "a");
  device_->pass(kDayMs);
  device_->dayMs += 1'000;  // less than what is stored
  add(*outbox, "b");
  EXPECT_EQ(timesIn("segment-0000000000000001").size(), 1u);
  device_->dayMs += 1;
  add(*outbox, "c");
  add(*outbox, "d");
  const std::vector<JXStoredTime> times = timesIn("segment-0000000000000001");
  ASSERT_EQ(times.size(), 2u);
  EXPECT_EQ(times[0].series, times[1].series);
  EXPECT_EQ(times[0].runningMs, 0);
  EXPECT_EQ(times[0].dayMs, kTestNowMs);
  EXPECT_EQ(times[1].runningMs, kDayMs);
  EXPECT_EQ(times[1].dayMs, kTestNowMs + kDayMs + 1'001);
}

TEST_F(RunningTime, ProcessesThatStartTogetherUseOneSeries) {
  const auto one = start();
  const auto other = start();
  add(*one, "a");
  add(*other, "b");
  ASSERT_EQ(timesIn("segment-0000000000000001").size(), 1u);
  ASSERT_EQ(timesIn("segment-0000000000000002").size(), 1u);
  EXPECT_EQ(timesIn("segment-0000000000000001")[0].series,
            timesIn("segment-0000000000000002")[0].series);
}

TEST_F(RunningTime, RequestThatWasInMemoryKeepsItsAge) {
  {
    const auto outbox = start();
    {
      const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
      add(*outbox, "a");
      EXPECT_EQ(outbox->counters().inMemory, 1u);
      device_->pass(20 * kDayMs);
    }
    outbox->sync();
    EXPECT_EQ(outbox->counters().inMemory, 0u);
    add(*outbox, "b");
  }
  device_->pass(10 * kDayMs);
  EXPECT_EQ(expiredNow(), 0u);
  device_->pass(1);
  EXPECT_EQ(expiredNow(), 1u);
  EXPECT_EQ(listed(), Bodies{"b"});
}

TEST_F(RunningTime, EraseStartsAnotherSeries) {
  execute("a");
  const std::uint64_t series = timesIn("clock").front().series;
  const auto erasures = std::make_shared<JXErasures>(folder_.path());
  JXOutbox outbox(box_, JXOutboxBounds(), device_, erasures);
  EXPECT_TRUE(erasures->erase().empty());
  outbox.applyErasures();
  EXPECT_FALSE(fs::exists(box_ + "/clock"));
  add(outbox, "b");
  ASSERT_EQ(timesIn("clock").size(), 1u);
  EXPECT_NE(timesIn("clock").front().series, series);
}

TEST_F(RunningTime, AcceptsAnyTimeOfAClock) {
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  const auto outbox = start();
  for (const std::int64_t ms : {kLeast, kMost, std::int64_t{0}, std::int64_t{-1}, kTestNowMs}) {
    device_->dayMs = ms;
    add(*outbox, "a");
  }
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  device_->upMs = kLeast;
  add(*outbox, "a");
  EXPECT_EQ(outbox->counters().droppedTooOld, 0u);
  device_->upMs = kMost;
  outbox->sync();
  EXPECT_EQ(outbox->counters().droppedTooOld, 6u);
}

// Times that nobody wrote with this class.
TEST(RecordTimes, IgnoresInvalidTimes) {
  const JXStoredTime now{7, kTestNowMs, 1'000, 0, 0};
  for (const JXStoredTime& time :
       {JXStoredTime{7, kTestNowMs, -1, 0, 0}, JXStoredTime{7, kTestNowMs, 0, -1, 0},
        JXStoredTime{7, std::numeric_limits<std::int64_t>::min(), 0, 0, 0},
        JXStoredTime{7, 0, std::numeric_limits<std::int64_t>::max(), 0, 0},
        JXStoredTime{8, kTestNowMs, 0, 0, 0}, JXStoredTime{0, kTestNowMs, 0, 0, 0}}) {
    JXRecordTimes times(now);
    times.add(time);
    EXPECT_EQ(times.runningMs(kTestNowMs), JXRecordTimes::kUnknown);
    EXPECT_FALSE(times.hasFirst());
    EXPECT_EQ(times.unknownMs(), 1'000);
  }
}

TEST(RecordTimes, RecordsBeforeTheFirstTimeCountAsCreatedAtIt) {
  JXRecordTimes times({7, kTestNowMs, 5'000, 0, 0});
  EXPECT_EQ(times.runningMs(kTestNowMs), JXRecordTimes::kUnknown);
  times.add({7, kTestNowMs - 10'000, 2'000, 0, 0});
  times.add({7, kTestNowMs, 4'000, 0, 0});
  EXPECT_EQ(times.unknownMs(), 2'000);
  EXPECT_EQ(times.runningMs(kTestNowMs - 500), 3'500);
  // Never in the future, never before the series began.
  EXPECT_EQ(times.runningMs(kTestNowMs + 60'000), 5'000);
  EXPECT_EQ(times.runningMs(kTestNowMs - 60'000), 0);
  EXPECT_EQ(times.runningMs(std::numeric_limits<std::int64_t>::max()), JXRecordTimes::kUnknown);
  times.add({8, kTestNowMs, 0, 0, 0});
  EXPECT_EQ(times.runningMs(kTestNowMs), JXRecordTimes::kUnknown);
}

}  // namespace
}  // namespace jx
