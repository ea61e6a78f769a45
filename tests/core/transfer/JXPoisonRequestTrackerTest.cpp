// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPoisonRequestTracker.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using namespace std::chrono_literals;
using Ids = std::vector<std::uint64_t>;
using Time = JXPoisonRequestTracker::Time;

constexpr Time kStart{1'000s};

class SuspectRequests : public ::testing::Test {
 protected:
  void fail(std::uint64_t id, Time now, int status = 500) {
    suspects.ended(id, {status, false}, JXResponseClass::Retry, now);
  }
  JXPoisonRequestTracker suspects{JXRetryTimings()};
};

TEST_F(SuspectRequests, TwoFailuresAreNotSuspicious) {
  fail(1, kStart);
  fail(1, kStart + 1s);
  EXPECT_EQ(suspects.deferred(kStart + 1s), Ids{});
  EXPECT_EQ(suspects.firstEnd(kStart + 1s), std::nullopt);
}

TEST_F(SuspectRequests, TheThirdSetsTheRequestAsideForASecond) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  EXPECT_EQ(suspects.deferred(kStart + 999ms), Ids{1});
  EXPECT_EQ(suspects.firstEnd(kStart), kStart + 1s);
  EXPECT_EQ(suspects.deferred(kStart + 1s), Ids{});
}

TEST_F(SuspectRequests, EachFurtherFailureDoublesThePauseUpToFiveMinutes) {
  fail(1, kStart);
  fail(1, kStart);
  for (const auto pause : {1s, 2s, 4s, 8s, 16s, 32s, 64s, 128s, 256s, 300s, 300s}) {
    fail(1, kStart);
    EXPECT_EQ(suspects.firstEnd(kStart), kStart + pause);
  }
}

TEST_F(SuspectRequests, OnlyAnAnswerOfTheServerIsSuspicious) {
  for (int i = 0; i < 5; ++i) {
    fail(1, kStart, 0);
    fail(2, kStart, 429);
    fail(3, kStart, 408);
    fail(4, kStart, 503);
  }
  EXPECT_EQ(suspects.deferred(kStart), Ids{4});
}

TEST_F(SuspectRequests, ALastingAnswerClearsTheRequest) {
  for (const JXResponseClass verdict : {JXResponseClass::Delivered, JXResponseClass::Rejected}) {
    for (int i = 0; i < 3; ++i)
      fail(1, kStart);
    suspects.ended(1, {verdict == JXResponseClass::Delivered ? 200 : 400, false}, verdict, kStart);
    EXPECT_EQ(suspects.deferred(kStart), Ids{});
    fail(1, kStart);
    EXPECT_EQ(suspects.deferred(kStart), Ids{});
    suspects.ended(1, {200, false}, JXResponseClass::Delivered, kStart);
  }
}

TEST_F(SuspectRequests, EachHasItsOwnPause) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  for (int i = 0; i < 4; ++i)
    fail(2, kStart);
  EXPECT_EQ(suspects.deferred(kStart), (Ids{1, 2}));
  EXPECT_EQ(suspects.deferred(kStart + 1s), Ids{2});
  EXPECT_EQ(suspects.firstEnd(kStart + 1s), kStart + 2s);
}

TEST_F(SuspectRequests, EndingThePausesKeepsTheCount) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  suspects.endPauses();
  EXPECT_EQ(suspects.deferred(kStart), Ids{});
  fail(1, kStart);
  EXPECT_EQ(suspects.firstEnd(kStart), kStart + 2s);
}

TEST_F(SuspectRequests, AHundredAreKnownApart) {
  for (std::uint64_t id = 1; id <= 101; ++id) {
    for (int i = 0; i < 3; ++i)
      fail(id, kStart);
  }
  const Ids aside = suspects.deferred(kStart);
  ASSERT_EQ(aside.size(), 100u);
  EXPECT_EQ(aside.front(), 2u);
  EXPECT_EQ(aside.back(), 101u);
}

}  // namespace
}  // namespace jx
