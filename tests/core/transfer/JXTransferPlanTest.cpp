// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferPlan.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using namespace std::chrono_literals;
using Time = JXTransferPlan::Time;
using Ids = std::vector<std::uint64_t>;

const Time kStart = Time(1'000s);
constexpr JXAttemptResult kDelivered{200, false};
constexpr JXAttemptResult kNoResponse{0, false};
constexpr JXAttemptResult kUnavailable{503, false};
constexpr JXAttemptResult kNeverSendable{0, true};

// A plan with queued requests.
class TransferPlan : public ::testing::Test {
 protected:
  std::size_t mayStart(Time now) { return plan.next(now).mayStart; }
  // Delivers the first request, so that several may be in flight afterwards.
  void warmUp() {
    plan.started(1);
    plan.ended(1, kDelivered, {}, kStart, 0.5);
  }

  JXTransferPlan plan{JXRetryTimings()};
};

TEST_F(TransferPlan, StartsOneRequestUntilAResponseIsReceived) {
  EXPECT_EQ(1u, mayStart(kStart));
  EXPECT_TRUE(plan.next(kStart).probes);
  plan.started(1);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(4u, mayStart(kStart));
  EXPECT_FALSE(plan.next(kStart).probes);
}

TEST_F(TransferPlan, TreatsARejectionAsAResponse) {
  plan.started(1);
  EXPECT_EQ(JXResponseClass::Rejected, plan.ended(1, JXAttemptResult{404, false}, {}, kStart, 0.5));
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, RequestThatCannotBeSentDoesNotEndTheProbe) {
  plan.started(1);
  EXPECT_EQ(JXResponseClass::Rejected, plan.ended(1, kNeverSendable, {}, kStart, 0.5));
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, KeepsAtMostFourRequestsInFlight) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.ended(3, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, FailureDelaysAllRequests) {
  plan.started(1);
  plan.ended(1, kNoResponse, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.nextWait(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, WakesForABackoffThatEndsBeforeTheSleep) {
  plan.started(1);
  plan.ended(1, kNoResponse, {}, kStart, 0.5);
  ASSERT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.nextWait(kStart + 500ms).wakeAt);
  plan.pauseUntil(kStart + 2s);
  ASSERT_EQ(0u, mayStart(kStart + 1'999ms));
  EXPECT_EQ(kStart + 2s, plan.nextWait(kStart + 2s).wakeAt);
}

TEST_F(TransferPlan, CountsFourConcurrentFailuresOnce) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.ended(id, kUnavailable, {}, kStart, 0.5);
  EXPECT_EQ(1u, plan.retryState().failures);
  EXPECT_EQ(kStart + 500ms, plan.retryState().backoffUntil);
}

TEST_F(TransferPlan, ProbeAfterAFailureWaitsForRequestsInFlight) {
  warmUp();
  plan.started(2);
  plan.started(3);
  plan.ended(2, kNoResponse, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 10s));
  plan.ended(3, kNoResponse, {}, kStart + 10s, 0.5);
  EXPECT_EQ(1u, plan.retryState().failures);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, ResponseFromBeforeTheFailureDoesNotEndTheBackoff) {
  warmUp();
  plan.started(2);
  plan.started(3);
  plan.ended(2, kNoResponse, {}, kStart, 0.5);
  plan.ended(3, kDelivered, {}, kStart + 1ms, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, ProbesWithOneRequestAfterAnIdleMinute) {
  warmUp();
  EXPECT_EQ(4u, mayStart(kStart + 60s));
  EXPECT_EQ(1u, mayStart(kStart + 60s + 1ms));
}

TEST_F(TransferPlan, WaitsForRetryAfter) {
  plan.started(1);
  plan.ended(1, JXAttemptResult{429, false}, 30s, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 29'999ms));
  EXPECT_EQ(1u, mayStart(kStart + 30s));
}

TEST_F(TransferPlan, DoesNotWakeForAnEmptyQueue) {
  plan.nothingToStart(kStart);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_EQ(std::nullopt, plan.nextWait(kStart).wakeAt);
  EXPECT_FALSE(plan.nextWait(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, NeitherStartsNorAbortsRequestsInTheBackground) {
  plan.started(1);
  plan.setInBackground(true);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_TRUE(plan.isInFlight(1));
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.setInBackground(false);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, PauseForTheUserAgentEndsAutomatically) {
  plan.pauseUntil(kStart + 10s);
  EXPECT_EQ(0u, mayStart(kStart + 9'999ms));
  EXPECT_EQ(kStart + 10s, plan.nextWait(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, PauseForTheUserAgentEndsWhenItIsKnown) {
  plan.pauseUntil(kStart + 10s);
  plan.pauseUntil(std::nullopt);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST(TransferPlanWaits, LimitsTheSyncDelay) {
  JXRetryTimings timings;
  timings.syncDelay = std::chrono::milliseconds::max();
  JXTransferPlan longest(timings);
  const Time limit = kStart + std::chrono::hours(24 * 365);
  longest.storageChanged(kStart);
  EXPECT_FALSE(longest.next(limit - 1ms).sync);
  EXPECT_TRUE(longest.next(limit).sync);
  longest.synced(true, kStart);
  EXPECT_FALSE(longest.next(limit - 1ms).sync);
  EXPECT_TRUE(longest.next(limit).sync);

  timings.syncDelay = std::chrono::milliseconds::min();
  JXTransferPlan shortest(timings);
  shortest.storageChanged(kStart);
  EXPECT_TRUE(shortest.next(kStart).sync);
  shortest.synced(true, kStart);
  EXPECT_FALSE(shortest.next(kStart).sync);
  EXPECT_TRUE(shortest.next(kStart + 1ms).sync);
}

TEST_F(TransferPlan, SyncsASecondAfterTheFirstChange) {
  plan.nothingToStart(kStart);
  plan.storageChanged(kStart);
  plan.storageChanged(kStart + 700ms);
  EXPECT_FALSE(plan.next(kStart + 999ms).sync);
  EXPECT_EQ(kStart + 1s, plan.nextWait(kStart + 999ms).wakeAt);
  EXPECT_TRUE(plan.next(kStart + 1s).sync);
  plan.synced(false, kStart + 1s);
  EXPECT_FALSE(plan.next(kStart + 1h).sync);
  EXPECT_EQ(std::nullopt, plan.nextWait(kStart + 1h).wakeAt);
}

TEST_F(TransferPlan, SyncsIndependentlyOfTheNetwork) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  plan.storageChanged(kStart);
  plan.setInBackground(true);
  EXPECT_TRUE(plan.next(kStart + 1s).sync);
}

TEST_F(TransferPlan, RetriesAFailedSyncWithExponentialBackoff) {
  plan.nothingToStart(kStart);
  plan.storageChanged(kStart);
  Time now = kStart + 1s;
  for (const auto backoff : {1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
    ASSERT_TRUE(plan.next(now).sync);
    plan.synced(true, now);
    EXPECT_EQ(now + backoff, plan.nextWait(now).wakeAt);
    now += backoff;
  }
}

TEST_F(TransferPlan, SyncsAChangeAfterAFailedSyncWithinASecond) {
  plan.nothingToStart(kStart);
  for (int i = 0; i < 6; ++i)
    plan.synced(true, kStart);
  ASSERT_EQ(kStart + 32s, plan.nextWait(kStart).wakeAt);
  plan.storageChanged(kStart);
  EXPECT_EQ(kStart + 1s, plan.nextWait(kStart).wakeAt);
}

TEST_F(TransferPlan, DoesNotWakeForAdditionsDuringABackoff) {
  plan.started(1);
  plan.ended(1, kNoResponse, {}, kStart, 0.5);
  EXPECT_FALSE(plan.nextWait(kStart).ignoresAdditions);  // the first addition schedules the sync
  plan.storageChanged(kStart);
  EXPECT_TRUE(plan.nextWait(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, FlushShortensABackoffWithoutRetryAfter) {
  Time now = kStart;
  for (std::uint64_t id = 1; id <= 6; ++id) {
    plan.started(id);
    plan.ended(id, kNoResponse, {}, now, 0.5);
  }
  EXPECT_EQ(0u, mayStart(now + 2s));
  plan.expedite(now + 2s);
  EXPECT_EQ(1u, mayStart(now + 2s));
}

TEST_F(TransferPlan, InternalFailureStartsABackoff) {
  plan.failedInternally(kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, IgnoresASecondEndOfARequest) {
  plan.started(1);
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  plan.ended(1, kNoResponse, {}, kStart, 0.5);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, WakesWhenADeferralEnds) {
  Time now = kStart;
  // With a draw of 0 the backoff of the pipeline ends immediately.
  for (int i = 0; i < 4; ++i) {
    plan.started(1);
    plan.ended(1, kUnavailable, {}, now, 0);
  }
  EXPECT_EQ(plan.deferred(now), Ids{1});
  plan.nothingToStart(now);
  EXPECT_EQ(0u, mayStart(now + 1'999ms));
  EXPECT_EQ(now + 2s, plan.nextWait(now + 1'999ms).wakeAt);
  EXPECT_EQ(1u, mayStart(now + 2s));
  EXPECT_EQ(plan.deferred(now + 2s), Ids{});
}

}  // namespace
}  // namespace jx
