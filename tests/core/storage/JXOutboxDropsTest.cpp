// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxDrops.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using Reason = JXDropReason;

class OutboxDrops : public OutboxTest {
 protected:
  std::unique_ptr<JXOutbox> openRemembering(const JXOutboxBounds& bounds = {}) const {
    auto outbox = open(bounds);
    outbox->rememberDropped();
    return outbox;
  }

  // Returns the bodies of all dropped requests and checks that each has this reason.
  static Bodies dropped(JXOutbox& outbox, Reason reason) {
    Bodies bodies;
    for (auto drops = outbox.takeDropped(); !drops.empty(); drops = outbox.takeDropped()) {
      for (const JXOutboxDrop& drop : drops) {
        EXPECT_EQ(drop.reason, reason);
        bodies.push_back(drop.body);
      }
    }
    return bodies;
  }
};

TEST_F(OutboxDrops, ReportsEachDroppedRequestOnceOldestFirst) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 2;
  const auto outbox = openRemembering(bounds);
  for (const char* body : {"a", "b", "c", "d"})
    add(*outbox, body);
  EXPECT_EQ(dropped(*outbox, Reason::TooMany), (Bodies{"a", "b"}));
  EXPECT_EQ(dropped(*outbox, Reason::TooMany), Bodies{});
}

TEST_F(OutboxDrops, ReportsTheReason) {
  JXOutboxBounds bounds;
  bounds.maxBytes = std::string(kTestUrl).size() + 3;
  const auto outbox = openRemembering(bounds);
  add(*outbox, "aa");
  add(*outbox, "bb");
  EXPECT_EQ(dropped(*outbox, Reason::TooLarge), Bodies{"aa"});
  add(*outbox, "too large alone");
  EXPECT_EQ(dropped(*outbox, Reason::TooLarge), Bodies{"too large alone"});
  clock_->advance(30 * kDayMs + 1);
  add(*outbox, "cc");
  EXPECT_EQ(dropped(*outbox, Reason::TooOld), Bodies{"bb"});
  outbox->purge();
  EXPECT_EQ(dropped(*outbox, Reason::Purged), Bodies{"cc"});
}

TEST_F(OutboxDrops, KeepsTheBodiesOfRequestsInMemory) {
  JXOutboxBounds bounds;
  bounds.maxInMemory = 1;
  const auto outbox = openRemembering(bounds);
  const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
  add(*outbox, "a");
  add(*outbox, "b");
  EXPECT_EQ(dropped(*outbox, Reason::NoStorage), Bodies{"a"});
  outbox->purge();
  EXPECT_EQ(dropped(*outbox, Reason::Purged), Bodies{"b"});
}

TEST_F(OutboxDrops, ReportsAFailedWriteWithoutMemory) {
  JXOutboxBounds bounds;
  bounds.maxInMemory = 0;
  const auto outbox = openRemembering(bounds);
  const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
  add(*outbox, "a");
  EXPECT_EQ(dropped(*outbox, Reason::NoStorage), Bodies{"a"});
}

TEST_F(OutboxDrops, ReadsBodiesAfterTheirFilesWereDeleted) {
  const auto outbox = openRemembering();
  for (int i = 0; i < 100; ++i)
    add(*outbox, std::to_string(i));
  outbox->purge();
  EXPECT_EQ(segments(), 0u);
  const Bodies bodies = dropped(*outbox, Reason::Purged);
  ASSERT_EQ(bodies.size(), 100u);
  EXPECT_EQ(bodies.front(), "0");
  EXPECT_EQ(bodies.back(), "99");
}

TEST_F(OutboxDrops, ReportsADamagedRequestWithoutABody) {
  const auto outbox = openRemembering();
  add(*outbox, "first");
  add(*outbox, "second");
  const std::string file = box_ + "/segment-0000000000000001";
  std::fstream(file, std::ios::in | std::ios::out | std::ios::binary)
      .seekp(static_cast<std::streamoff>(contentOf(file).find("first")))
      .put('F');
  EXPECT_EQ(takeAll(*outbox), Bodies{"second"});
  EXPECT_EQ(dropped(*outbox, Reason::Unreadable), Bodies{""});
  EXPECT_EQ(outbox->counters().droppedUnreadable, 1u);
  EXPECT_EQ(outbox->counters().queued, 1u);
}

TEST_F(OutboxDrops, LimitsTheNumberOfRecordsAndTheirMemory) {
  JXOutboxBounds bounds;
  bounds.maxRequests = 1;
  const auto outbox = openRemembering(bounds);
  for (int i = 0; i < 10'003; ++i)
    add(*outbox, std::to_string(i));
  EXPECT_EQ(outbox->counters().droppedTooMany, 10'002u);
  EXPECT_EQ(dropped(*outbox, Reason::TooMany).size(), 10'000u);

  JXOutboxDrops drops;
  drops.startRecording();
  const std::string large(5u * 1024 * 1024, 'x');
  drops.record(Reason::NoStorage, large);
  drops.record(Reason::NoStorage, large);
  const auto taken = drops.take(10);
  ASSERT_EQ(taken.size(), 2u);
  EXPECT_EQ(taken[0].body.size(), large.size());
  EXPECT_EQ(taken[1].body, "");
  drops.record(Reason::NoStorage, large);
  EXPECT_EQ(drops.take(1)[0].body.size(), large.size());
}

TEST_F(OutboxDrops, RecordsNothingByDefault) {
  const auto outbox = open();
  add(*outbox, "a");
  outbox->purge();
  EXPECT_EQ(dropped(*outbox, Reason::Purged), Bodies{});
}

TEST_F(OutboxDrops, AcknowledgingADroppedRequestReturnsFalse) {
  const auto outbox = openRemembering();
  add(*outbox, "a");
  const auto first = outbox->take();
  outbox->purge();
  add(*outbox, "b");
  EXPECT_FALSE(outbox->markDelivered(first->id));
  EXPECT_FALSE(outbox->moveToDeadLetters(first->id, 400));
  const auto second = outbox->take();
  EXPECT_TRUE(outbox->markDelivered(second->id));
  EXPECT_FALSE(outbox->markDelivered(second->id));
}

}  // namespace
}  // namespace jx
