// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplayTally.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

// Five events that were executed, taken and delivered.
ReplayTally allWell() {
  ReplayTally tally;
  tally.executed = 5;
  tally.sends = true;
  tally.counters.outbox.added = 5;
  tally.counters.outbox.delivered = 5;
  return tally;
}

TEST(ReplayTally, AllDeliveredIsStatusZero) {
  EXPECT_EQ(summaryOf(allWell()), "executed 5, delivered 5, held 0, rejected 0, dropped 0");
  EXPECT_EQ(exitStatusOf(allWell()), 0);
}

TEST(ReplayTally, BadLinesAloneAreStatusOne) {
  ReplayTally tally = allWell();
  tally.badLines = 2;
  EXPECT_EQ(summaryOf(tally),
            "executed 5, delivered 5, held 0, rejected 0, dropped 0; bad lines 2");
  EXPECT_EQ(exitStatusOf(tally), 1);
}

TEST(ReplayTally, WhatIsHeldRejectedOrDroppedIsStatusThreeAlsoBesideBadLines) {
  ReplayTally held = allWell();
  held.counters.outbox.queued = 1;
  held.badLines = 1;
  EXPECT_EQ(exitStatusOf(held), 3);
  ReplayTally rejected = allWell();
  rejected.counters.outbox.rejected = 1;
  EXPECT_EQ(exitStatusOf(rejected), 3);
  ReplayTally dropped = allWell();
  dropped.counters.outbox.droppedTooOld = 1;
  EXPECT_EQ(exitStatusOf(dropped), 3);
}

TEST(ReplayTally, EveryReasonToDropCounts) {
  ReplayTally tally = allWell();
  tally.counters.outbox.droppedTooMany = 1;
  tally.counters.outbox.droppedTooLarge = 20;
  tally.counters.outbox.droppedTooOld = 300;
  tally.counters.outbox.droppedNoStorage = 4'000;
  EXPECT_EQ(tally.dropped(), 4'321u);
}

TEST(ReplayTally, EventsThatTheLibraryNeverTookAreDropped) {
  ReplayTally tally = allWell();
  tally.counters = {};
  EXPECT_EQ(summaryOf(tally), "executed 5, delivered 0, held 0, rejected 0, dropped 5");
}

TEST(ReplayTally, EventsWithoutConsentAreIgnoredAndNotDropped) {
  ReplayTally tally = allWell();
  tally.executed = 7;
  tally.ignored = 2;
  EXPECT_EQ(summaryOf(tally),
            "executed 7, delivered 5, held 0, rejected 0, dropped 0; 2 ignored while disabled");
  EXPECT_EQ(exitStatusOf(tally), 0);
}

TEST(ReplayTally, WhereNothingIsSentNothingIsLeftUndelivered) {
  ReplayTally tally;
  tally.executed = 5;
  EXPECT_EQ(summaryOf(tally), "executed 5, delivered 0, held 0, rejected 0, dropped 0");
  EXPECT_EQ(exitStatusOf(tally), 0);
}

TEST(ReplayTally, RequestsOnNoDiskAreSaidToBeLost) {
  ReplayTally tally = allWell();
  tally.counters.outbox.queued = 3;
  tally.counters.outbox.inMemory = 3;
  EXPECT_EQ(summaryOf(tally),
            "executed 5, delivered 5, held 3, rejected 0, dropped 0; of those held 3 are on no "
            "disk and lost now");
}

}  // namespace
}  // namespace jx
