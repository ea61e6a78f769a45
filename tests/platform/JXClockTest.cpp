// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXClock.h"

#include <gtest/gtest.h>

#include <chrono>

#include "jx/platform/JXManualClock.h"

namespace jx {
namespace {

TEST(JXManualClock, KeepsItsTimeUntilItIsChanged) {
  JXManualClock clock(1700000000000);
  EXPECT_EQ(clock.nowMs(), 1700000000000);
  EXPECT_EQ(clock.nowMs(), 1700000000000);
}

TEST(JXManualClock, AdvancesByMillisecondsAndBack) {
  JXManualClock clock(1000);
  clock.advance(1800001);
  EXPECT_EQ(clock.nowMs(), 1801001);
  clock.advance(-1801002);
  EXPECT_EQ(clock.nowMs(), -1);
}

TEST(JXManualClock, SetsTheTime) {
  JXManualClock clock(5);
  clock.set(7);
  EXPECT_EQ(clock.nowMs(), 7);
}

TEST(JXSystemClock, CountsMillisecondsFromTheUnixEpoch) {
  const auto now = [] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
  };
  const auto before = now();
  const auto read = JXSystemClock().nowMs();
  EXPECT_LE(before, read);
  EXPECT_LE(read, now());
}

}  // namespace
}  // namespace jx
