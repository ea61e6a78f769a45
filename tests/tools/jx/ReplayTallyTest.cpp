// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplayTally.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

// Five events that were executed, queued and delivered.
ReplayTally allDelivered() {
  ReplayTally tally;
  tally.executed = 5;
  tally.sends = true;
  tally.counters.outbox.added = 5;
  tally.counters.outbox.delivered = 5;
  return tally;
}

TEST(ReplayTally, ReturnsStatus0WhenAllDelivered) {
  EXPECT_EQ(summaryOf(allDelivered()), "executed 5, delivered 5, held 0, rejected 0, dropped 0");
  EXPECT_EQ(exitStatusOf(allDelivered()), 0);
}

TEST(ReplayTally, ReturnsStatus1ForBadLinesOnly) {
  ReplayTally tally = allDelivered();
  tally.badLines = 2;
  EXPECT_EQ(summaryOf(tally),
            "executed 5, delivered 5, held 0, rejected 0, dropped 0; bad lines 2");
  EXPECT_EQ(exitStatusOf(tally), 1);
}

TEST(ReplayTally, ReturnsStatus3ForUndeliveredEventsEvenWithBadLines) {
  ReplayTally held = allDelivered();
  held.counters.outbox.queued = 1;
  held.badLines = 1;
  EXPECT_EQ(exitStatusOf(held), 3);
  ReplayTally rejected = allDelivered();
  rejected.counters.outbox.rejected = 1;
  EXPECT_EQ(exitStatusOf(rejected), 3);
  ReplayTally dropped = allDelivered();
  dropped.counters.outbox.droppedTooOld = 1;
  EXPECT_EQ(exitStatusOf(dropped), 3);
}

TEST(ReplayTally, CountsEveryDropReason) {
  ReplayTally tally = allDelivered();
  tally.counters.outbox.droppedTooMany = 1;
  tally.counters.outbox.droppedTooLarge = 20;
  tally.counters.outbox.droppedTooOld = 300;
  tally.counters.outbox.droppedNoStorage = 4'000;
  EXPECT_EQ(tally.dropped(), 4'321u);
}

TEST(ReplayTally, CountsEventsNeverQueuedAsDropped) {
  ReplayTally tally = allDelivered();
  tally.counters = {};
  EXPECT_EQ(summaryOf(tally), "executed 5, delivered 0, held 0, rejected 0, dropped 5");
}

TEST(ReplayTally, CountsEventsWithoutConsentAsIgnored) {
  ReplayTally tally = allDelivered();
  tally.executed = 7;
  tally.ignored = 2;
  EXPECT_EQ(summaryOf(tally),
            "executed 7, delivered 5, held 0, rejected 0, dropped 0; 2 ignored while disabled");
  EXPECT_EQ(exitStatusOf(tally), 0);
}

TEST(ReplayTally, ReturnsStatus0WhenNothingIsSent) {
  ReplayTally tally;
  tally.executed = 5;
  EXPECT_EQ(summaryOf(tally), "executed 5, delivered 0, held 0, rejected 0, dropped 0");
  EXPECT_EQ(exitStatusOf(tally), 0);
}

TEST(ReplayTally, ReportsRequestsInMemoryAsLost) {
  ReplayTally tally = allDelivered();
  tally.counters.outbox.queued = 3;
  tally.counters.outbox.inMemory = 3;
  EXPECT_EQ(summaryOf(tally),
            "executed 5, delivered 5, held 3, rejected 0, dropped 0; 3 held events could not "
            "be stored and are lost");
}

}  // namespace
}  // namespace jx
