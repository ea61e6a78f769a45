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
constexpr JXAttemptResult kNoAnswer{0, false};
constexpr JXAttemptResult kUnavailable{503, false};
constexpr JXAttemptResult kNeverSendable{0, true};

// A plan past its hold at the start, with a queue that holds requests.
class TransferPlan : public ::testing::Test {
 protected:
  TransferPlan() { plan.endStartHold(); }

  std::size_t mayStart(Time now) { return plan.next(now).mayStart; }
  // The first request was delivered, so that several may follow.
  void warmUp() {
    plan.started(1);
    plan.ended(1, kDelivered, {}, kStart, 0.5);
  }

  JXTransferPlan plan{JXRetryTimings(), kStart};
};

TEST_F(TransferPlan, OnlyOneRequestIsInFlightUntilAnAnswerCame) {
  EXPECT_EQ(1u, mayStart(kStart));
  EXPECT_TRUE(plan.next(kStart).probes);
  plan.started(1);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(4u, mayStart(kStart));
  EXPECT_FALSE(plan.next(kStart).probes);
}

TEST_F(TransferPlan, ARejectionIsAnAnswerToo) {
  plan.started(1);
  EXPECT_EQ(JXResponseClass::Rejected, plan.ended(1, JXAttemptResult{404, false}, {}, kStart, 0.5));
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, ARequestThatCannotBeSentTellsNothingOfTheNetwork) {
  plan.started(1);
  EXPECT_EQ(JXResponseClass::Rejected, plan.ended(1, kNeverSendable, {}, kStart, 0.5));
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, AtMostFourAreInFlight) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.ended(3, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, AFailurePausesEverything) {
  plan.started(1);
  plan.ended(1, kNoAnswer, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.rest(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, APauseThatEndsWhileTheThreadGoesToRestIsNotOverslept) {
  plan.started(1);
  plan.ended(1, kNoAnswer, {}, kStart, 0.5);
  ASSERT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.rest(kStart + 500ms).wakeAt);
  plan.holdUntil(kStart + 2s);
  ASSERT_EQ(0u, mayStart(kStart + 1'999ms));
  EXPECT_EQ(kStart + 2s, plan.rest(kStart + 2s).wakeAt);
}

TEST_F(TransferPlan, FourFailuresAtOnceAreOneStepOfThePause) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.ended(id, kUnavailable, {}, kStart, 0.5);
  EXPECT_EQ(1u, plan.retryState().failures);
  EXPECT_EQ(kStart + 500ms, plan.retryState().pausedUntil);
}

TEST_F(TransferPlan, TheProbeAfterAFailureWaitsForThoseStillInFlight) {
  warmUp();
  plan.started(2);
  plan.started(3);
  plan.ended(2, kNoAnswer, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 10s));
  plan.ended(3, kNoAnswer, {}, kStart + 10s, 0.5);
  EXPECT_EQ(1u, plan.retryState().failures);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, AnAnswerFromBeforeTheFailureDoesNotOpenThePipeline) {
  warmUp();
  plan.started(2);
  plan.started(3);
  plan.ended(2, kNoAnswer, {}, kStart, 0.5);
  plan.ended(3, kDelivered, {}, kStart + 1ms, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, AfterMoreThanAMinuteOfIdlenessOneRequestProbes) {
  warmUp();
  EXPECT_EQ(4u, mayStart(kStart + 60s));
  EXPECT_EQ(1u, mayStart(kStart + 60s + 1ms));
}

TEST_F(TransferPlan, RetryAfterIsObeyed) {
  plan.started(1);
  plan.ended(1, JXAttemptResult{429, false}, 30s, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 29'999ms));
  EXPECT_EQ(1u, mayStart(kStart + 30s));
}

TEST_F(TransferPlan, AnEmptyQueueNeedsNoWaking) {
  plan.nothingToStart(kStart);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_EQ(std::nullopt, plan.rest(kStart).wakeAt);
  EXPECT_FALSE(plan.rest(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, DisablingAbortsWhatIsInFlightAndHoldsIt) {
  plan.started(1);
  plan.setDisabled(true);
  EXPECT_TRUE(plan.next(kStart).abortInFlight);
  EXPECT_EQ(Ids{1}, plan.aborted());
  const JXTransferActions step = plan.next(kStart);
  EXPECT_FALSE(step.abortInFlight);
  EXPECT_EQ(0u, step.mayStart);
  EXPECT_EQ(std::nullopt, plan.rest(kStart).wakeAt);
  plan.setDisabled(false);
  EXPECT_EQ(1u, mayStart(kStart));
  EXPECT_EQ(0u, plan.retryState().failures);
}

TEST_F(TransferPlan, DisablingHoldsARetryThatWasScheduled) {
  plan.started(1);
  plan.ended(1, kNoAnswer, {}, kStart, 0.5);
  plan.setDisabled(true);
  EXPECT_EQ(0u, mayStart(kStart + 1h));
  EXPECT_EQ(std::nullopt, plan.rest(kStart).wakeAt);
}

TEST_F(TransferPlan, InTheBackgroundNothingStartsAndNothingIsAborted) {
  plan.started(1);
  plan.setInBackground(true);
  const JXTransferActions step = plan.next(kStart);
  EXPECT_FALSE(step.abortInFlight);
  EXPECT_EQ(0u, step.mayStart);
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.setInBackground(false);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, TheHoldForTheUserAgentEndsByItself) {
  plan.holdUntil(kStart + 10s);
  EXPECT_EQ(0u, mayStart(kStart + 9'999ms));
  EXPECT_EQ(kStart + 10s, plan.rest(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, TheHoldForTheUserAgentEndsWhenItIsKnown) {
  plan.holdUntil(kStart + 10s);
  plan.holdUntil(std::nullopt);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST(TransferPlanAtItsStart, WhatTheQueueHoldsWaitsASecondForADecision) {
  JXTransferPlan plan(JXRetryTimings(), kStart);
  EXPECT_EQ(0u, plan.next(kStart + 999ms).mayStart);
  EXPECT_EQ(kStart + 1s, plan.rest(kStart).wakeAt);
  EXPECT_EQ(1u, plan.next(kStart + 1s).mayStart);
}

TEST(TransferPlanAtItsStart, ARequestOrADecisionOrAFlushEndsTheHold) {
  JXTransferPlan byRequest(JXRetryTimings(), kStart);
  byRequest.requestsAdded();
  EXPECT_EQ(1u, byRequest.next(kStart).mayStart);
  JXTransferPlan byDecision(JXRetryTimings(), kStart);
  byDecision.endStartHold();
  EXPECT_EQ(1u, byDecision.next(kStart).mayStart);
  JXTransferPlan byFlush(JXRetryTimings(), kStart);
  byFlush.expedite(kStart);
  EXPECT_EQ(1u, byFlush.next(kStart).mayStart);
}

TEST(TransferPlanAtItsStart, AnAdditionIsHeardDuringTheHold) {
  JXTransferPlan plan(JXRetryTimings(), kStart);
  plan.storageChanged(kStart);
  EXPECT_FALSE(plan.rest(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, ASyncFollowsTheFirstChangeByASecond) {
  plan.nothingToStart(kStart);
  plan.storageChanged(kStart);
  plan.storageChanged(kStart + 700ms);
  EXPECT_FALSE(plan.next(kStart + 999ms).sync);
  EXPECT_EQ(kStart + 1s, plan.rest(kStart + 999ms).wakeAt);
  EXPECT_TRUE(plan.next(kStart + 1s).sync);
  plan.synced(false, kStart + 1s);
  EXPECT_FALSE(plan.next(kStart + 1h).sync);
  EXPECT_EQ(std::nullopt, plan.rest(kStart + 1h).wakeAt);
}

TEST_F(TransferPlan, ASyncIsDueWhateverTheNetworkDoes) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    plan.started(id);
  plan.storageChanged(kStart);
  plan.setInBackground(true);
  EXPECT_TRUE(plan.next(kStart + 1s).sync);
}

TEST_F(TransferPlan, ASyncThatFailsIsTriedAtGrowingDistances) {
  plan.nothingToStart(kStart);
  plan.storageChanged(kStart);
  Time now = kStart + 1s;
  for (const auto distance : {1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
    ASSERT_TRUE(plan.next(now).sync);
    plan.synced(true, now);
    EXPECT_EQ(now + distance, plan.rest(now).wakeAt);
    now += distance;
  }
}

TEST_F(TransferPlan, AChangeAfterAFailedSyncIsSyncedWithinASecond) {
  plan.nothingToStart(kStart);
  for (int i = 0; i < 6; ++i)
    plan.synced(true, kStart);
  ASSERT_EQ(kStart + 32s, plan.rest(kStart).wakeAt);
  plan.storageChanged(kStart);
  EXPECT_EQ(kStart + 1s, plan.rest(kStart).wakeAt);
}

TEST_F(TransferPlan, AdditionsDuringAPauseAreNoReasonToWake) {
  plan.started(1);
  plan.ended(1, kNoAnswer, {}, kStart, 0.5);
  EXPECT_FALSE(plan.rest(kStart).ignoresAdditions);  // the first one sets the time of the sync
  plan.storageChanged(kStart);
  EXPECT_TRUE(plan.rest(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, AFlushCutsAPauseThatNobodyAskedFor) {
  Time now = kStart;
  for (std::uint64_t id = 1; id <= 6; ++id) {
    plan.started(id);
    plan.ended(id, kNoAnswer, {}, now, 0.5);
  }
  EXPECT_EQ(0u, mayStart(now + 2s));
  plan.expedite(now + 2s);
  EXPECT_EQ(1u, mayStart(now + 2s));
}

TEST_F(TransferPlan, AFailureInsideTheProcessPausesToo) {
  plan.failedInside(kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, AnEndThatWasAlreadyToldIsIgnored) {
  plan.started(1);
  plan.ended(1, kDelivered, {}, kStart, 0.5);
  plan.ended(1, kNoAnswer, {}, kStart, 0.5);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, WhatIsSetAsideWakesTheThreadWhenItsPauseIsOver) {
  Time now = kStart;
  // Without jitter the pipeline's own pauses are over at once.
  for (int i = 0; i < 4; ++i) {
    plan.started(1);
    plan.ended(1, kUnavailable, {}, now, 0);
  }
  EXPECT_EQ(plan.deferred(now), Ids{1});
  plan.nothingToStart(now);
  EXPECT_EQ(0u, mayStart(now + 1'999ms));
  EXPECT_EQ(now + 2s, plan.rest(now + 1'999ms).wakeAt);
  EXPECT_EQ(1u, mayStart(now + 2s));
  EXPECT_EQ(plan.deferred(now + 2s), Ids{});
}

}  // namespace
}  // namespace jx
