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

class PoisonRequestTracker : public ::testing::Test {
 protected:
  void fail(std::uint64_t id, Time now, int status = 500) {
    tracker.ended(id, {status, false}, JXResponseClass::Retry, now);
  }
  JXPoisonRequestTracker tracker{JXRetryTimings()};
};

TEST_F(PoisonRequestTracker, DoesNotDeferAfterTwoFailures) {
  fail(1, kStart);
  fail(1, kStart + 1s);
  EXPECT_EQ(tracker.deferred(kStart + 1s), Ids{});
  EXPECT_EQ(tracker.nextRetry(kStart + 1s), std::nullopt);
}

TEST_F(PoisonRequestTracker, DefersForOneSecondAfterTheThirdFailure) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  EXPECT_EQ(tracker.deferred(kStart + 999ms), Ids{1});
  EXPECT_EQ(tracker.nextRetry(kStart), kStart + 1s);
  EXPECT_EQ(tracker.deferred(kStart + 1s), Ids{});
}

TEST_F(PoisonRequestTracker, DoublesTheDeferralUpToFiveMinutes) {
  fail(1, kStart);
  fail(1, kStart);
  for (const auto backoff : {1s, 2s, 4s, 8s, 16s, 32s, 64s, 128s, 256s, 300s, 300s}) {
    fail(1, kStart);
    EXPECT_EQ(tracker.nextRetry(kStart), kStart + backoff);
  }
}

TEST_F(PoisonRequestTracker, CountsOnlyServerErrors) {
  for (int i = 0; i < 5; ++i) {
    fail(1, kStart, 0);
    fail(2, kStart, 429);
    fail(3, kStart, 408);
    fail(4, kStart, 503);
  }
  EXPECT_EQ(tracker.deferred(kStart), Ids{4});
}

TEST_F(PoisonRequestTracker, ForgetsARequestAfterAFinalResponse) {
  for (const JXResponseClass responseClass :
       {JXResponseClass::Delivered, JXResponseClass::Rejected}) {
    for (int i = 0; i < 3; ++i)
      fail(1, kStart);
    tracker.ended(1, {responseClass == JXResponseClass::Delivered ? 200 : 400, false},
                  responseClass, kStart);
    EXPECT_EQ(tracker.deferred(kStart), Ids{});
    fail(1, kStart);
    EXPECT_EQ(tracker.deferred(kStart), Ids{});
    tracker.ended(1, {200, false}, JXResponseClass::Delivered, kStart);
  }
}

TEST_F(PoisonRequestTracker, DefersEachRequestIndependently) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  for (int i = 0; i < 4; ++i)
    fail(2, kStart);
  EXPECT_EQ(tracker.deferred(kStart), (Ids{1, 2}));
  EXPECT_EQ(tracker.deferred(kStart + 1s), Ids{2});
  EXPECT_EQ(tracker.nextRetry(kStart + 1s), kStart + 2s);
}

TEST_F(PoisonRequestTracker, EndDeferralsKeepsTheFailureCount) {
  for (int i = 0; i < 3; ++i)
    fail(1, kStart);
  tracker.endDeferrals();
  EXPECT_EQ(tracker.deferred(kStart), Ids{});
  fail(1, kStart);
  EXPECT_EQ(tracker.nextRetry(kStart), kStart + 2s);
}

TEST_F(PoisonRequestTracker, TracksAtMostAHundredRequests) {
  for (std::uint64_t id = 1; id <= 101; ++id) {
    for (int i = 0; i < 3; ++i)
      fail(id, kStart);
  }
  const Ids deferred = tracker.deferred(kStart);
  ASSERT_EQ(deferred.size(), 100u);
  EXPECT_EQ(deferred.front(), 2u);
  EXPECT_EQ(deferred.back(), 101u);
}

}  // namespace
}  // namespace jx
