// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferPlan.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using namespace std::chrono_literals;
using Time = JXTransferPlan::Time;
using Order = JXOutboxPick::Order;

const Time kStart = Time(1'000s);
constexpr JXAttemptResult kDelivered{200, false};
constexpr JXAttemptResult kMultiplexed{200, false, true};
constexpr JXAttemptResult kNoResponse{0, false};
constexpr JXAttemptResult kUnavailable{503, false};
constexpr JXAttemptResult kServerError{500, false};
constexpr JXAttemptResult kNeverSendable{0, true};

// A plan with queued requests for one host, 1, unless a test sets others.
class TransferPlan : public ::testing::Test {
 protected:
  TransferPlan() { plan.setHosts({{1, 0}}); }

  // Returns how many requests may be started now.
  std::size_t mayStart(Time now) const {
    JXTransferPlan copy = plan;
    std::size_t count = 0;
    while (const auto start = copy.nextStart(now))
      copy.started(1'000 + count++, *start);
    return count;
  }
  // Starts the next request, with this ID.
  JXTransferStart start(std::uint64_t id, Time now = kStart) {
    const std::optional<JXTransferStart> next = plan.nextStart(now);
    EXPECT_TRUE(next.has_value());
    plan.started(id, next.value_or(JXTransferStart()));
    return next.value_or(JXTransferStart());
  }
  void end(std::uint64_t id, const JXAttemptResult& outcome, Time now = kStart) {
    plan.ended(id, outcome, {}, 0ms, now, 0.5);
  }
  void emptyQueue() {
    plan.nothingToStart({1, Order::Oldest, false});
    plan.nothingToStart({1, Order::Retry, false});
  }
  // Delivers the first request, so that several may be in flight afterwards.
  void warmUp() {
    start(1);
    end(1, kDelivered);
  }

  JXTransferPlan plan{JXRetryTimings()};
};

TEST_F(TransferPlan, StartsOneRequestUntilAResponseIsReceived) {
  EXPECT_EQ(1u, mayStart(kStart));
  EXPECT_TRUE(plan.nextStart(kStart)->probes);
  start(1);
  EXPECT_EQ(0u, mayStart(kStart));
  end(1, kDelivered, kStart);
  EXPECT_EQ(4u, mayStart(kStart));
  EXPECT_FALSE(plan.nextStart(kStart)->probes);
}

TEST_F(TransferPlan, TreatsARejectionAsAResponse) {
  start(1);
  EXPECT_EQ(JXResponseClass::Rejected,
            plan.ended(1, JXAttemptResult{404, false}, {}, 0ms, kStart, 0.5).responseClass);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, RequestThatCannotBeSentDoesNotEndTheProbe) {
  start(1);
  EXPECT_EQ(JXResponseClass::Rejected,
            plan.ended(1, kNeverSendable, {}, 0ms, kStart, 0.5).responseClass);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, KeepsAtMostFourRequestsInFlight) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    start(id);
  EXPECT_EQ(0u, mayStart(kStart));
  end(3, kDelivered, kStart);
  EXPECT_EQ(1u, mayStart(kStart));
}

TEST_F(TransferPlan, FailureDelaysAllRequests) {
  start(1);
  end(1, kNoResponse, kStart);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.nextWait(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, WakesForABackoffThatEndsBeforeTheSleep) {
  start(1);
  end(1, kNoResponse, kStart);
  ASSERT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(kStart + 500ms, plan.nextWait(kStart + 500ms).wakeAt);
  plan.pauseUntil(kStart + 2s);
  ASSERT_EQ(0u, mayStart(kStart + 1'999ms));
  EXPECT_EQ(kStart + 2s, plan.nextWait(kStart + 2s).wakeAt);
}

TEST_F(TransferPlan, CountsFourConcurrentFailuresOnce) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    start(id);
  for (std::uint64_t id = 2; id <= 5; ++id)
    end(id, kUnavailable, kStart);
  EXPECT_EQ(1u, plan.pipeline(1)->retryState().failures);
  EXPECT_EQ(kStart + 500ms, plan.pipeline(1)->retryState().backoffUntil);
}

TEST_F(TransferPlan, ProbeAfterAFailureWaitsForRequestsInFlight) {
  warmUp();
  start(2);
  start(3);
  end(2, kNoResponse, kStart);
  EXPECT_EQ(0u, mayStart(kStart + 10s));
  end(3, kNoResponse, kStart + 10s);
  EXPECT_EQ(1u, plan.pipeline(1)->retryState().failures);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, ResponseFromBeforeTheFailureDoesNotEndTheBackoff) {
  warmUp();
  start(2);
  start(3);
  end(2, kNoResponse, kStart);
  end(3, kDelivered, kStart + 1ms);
  EXPECT_EQ(0u, mayStart(kStart + 499ms));
  EXPECT_EQ(1u, mayStart(kStart + 500ms));
}

TEST_F(TransferPlan, ProbesWithOneRequestAfterAnIdleMinute) {
  warmUp();
  EXPECT_EQ(4u, mayStart(kStart + 60s));
  EXPECT_EQ(1u, mayStart(kStart + 60s + 1ms));
}

TEST_F(TransferPlan, WaitsForRetryAfter) {
  start(1);
  plan.ended(1, JXAttemptResult{429, false}, 30s, 0ms, kStart, 0.5);
  EXPECT_EQ(0u, mayStart(kStart + 29'999ms));
  EXPECT_EQ(1u, mayStart(kStart + 30s));
}

TEST_F(TransferPlan, DoesNotWakeForAnEmptyQueue) {
  emptyQueue();
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_EQ(std::nullopt, plan.nextWait(kStart).wakeAt);
  EXPECT_FALSE(plan.nextWait(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, NeitherStartsNorAbortsRequestsInTheBackground) {
  start(1);
  plan.setInBackground(true);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_TRUE(plan.isInFlight(1));
  end(1, kDelivered, kStart);
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
  EXPECT_FALSE(longest.isSyncDue(limit - 1ms));
  EXPECT_TRUE(longest.isSyncDue(limit));
  longest.synced(true, kStart);
  EXPECT_FALSE(longest.isSyncDue(limit - 1ms));
  EXPECT_TRUE(longest.isSyncDue(limit));

  timings.syncDelay = std::chrono::milliseconds::min();
  JXTransferPlan shortest(timings);
  shortest.storageChanged(kStart);
  EXPECT_TRUE(shortest.isSyncDue(kStart));
  shortest.synced(true, kStart);
  EXPECT_FALSE(shortest.isSyncDue(kStart));
  EXPECT_TRUE(shortest.isSyncDue(kStart + 1ms));
}

TEST_F(TransferPlan, SyncsASecondAfterTheFirstChange) {
  emptyQueue();
  plan.storageChanged(kStart);
  plan.storageChanged(kStart + 700ms);
  EXPECT_FALSE(plan.isSyncDue(kStart + 999ms));
  EXPECT_EQ(kStart + 1s, plan.nextWait(kStart + 999ms).wakeAt);
  EXPECT_TRUE(plan.isSyncDue(kStart + 1s));
  plan.synced(false, kStart + 1s);
  EXPECT_FALSE(plan.isSyncDue(kStart + 1h));
  EXPECT_EQ(std::nullopt, plan.nextWait(kStart + 1h).wakeAt);
}

TEST_F(TransferPlan, SyncsIndependentlyOfTheNetwork) {
  warmUp();
  for (std::uint64_t id = 2; id <= 5; ++id)
    start(id);
  plan.storageChanged(kStart);
  plan.setInBackground(true);
  EXPECT_TRUE(plan.isSyncDue(kStart + 1s));
}

TEST_F(TransferPlan, RetriesAFailedSyncWithExponentialBackoff) {
  emptyQueue();
  plan.storageChanged(kStart);
  Time now = kStart + 1s;
  for (const auto backoff : {1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
    ASSERT_TRUE(plan.isSyncDue(now));
    plan.synced(true, now);
    EXPECT_EQ(now + backoff, plan.nextWait(now).wakeAt);
    now += backoff;
  }
}

TEST_F(TransferPlan, SyncsAChangeAfterAFailedSyncWithinASecond) {
  emptyQueue();
  for (int i = 0; i < 6; ++i)
    plan.synced(true, kStart);
  ASSERT_EQ(kStart + 32s, plan.nextWait(kStart).wakeAt);
  plan.storageChanged(kStart);
  EXPECT_EQ(kStart + 1s, plan.nextWait(kStart).wakeAt);
}

TEST_F(TransferPlan, DoesNotWakeForAdditionsDuringABackoff) {
  start(1);
  end(1, kNoResponse, kStart);
  EXPECT_FALSE(plan.nextWait(kStart).ignoresAdditions);  // the first addition schedules the sync
  plan.storageChanged(kStart);
  EXPECT_TRUE(plan.nextWait(kStart).ignoresAdditions);
}

TEST_F(TransferPlan, FlushShortensABackoffWithoutRetryAfter) {
  Time now = kStart;
  for (std::uint64_t id = 1; id <= 6; ++id) {
    now = std::max(now, plan.pipeline(1)->retryState().backoffUntil);
    start(id, now);
    end(id, kNoResponse, now);
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
  start(1);
  end(1, kDelivered, kStart);
  end(1, kNoResponse, kStart);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, TwoServerErrorsInARowDelayNoOtherRequest) {
  for (std::uint64_t id = 1; id <= 2; ++id) {
    EXPECT_EQ(start(id).order, Order::Oldest);
    end(id, kServerError);
  }
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, ThirdServerErrorInARowStartsAWaitAndAProbeFromTheWholeQueue) {
  for (std::uint64_t id = 1; id <= 3; ++id) {
    start(id);
    end(id, kServerError);
  }
  // 0.8 + 0.13 * 0.5 of a second
  EXPECT_EQ(0u, mayStart(kStart + 864ms));
  EXPECT_EQ(kStart + 865ms, plan.nextWait(kStart).wakeAt);
  EXPECT_EQ(1u, mayStart(kStart + 865ms));
  EXPECT_EQ(start(4, kStart + 865ms).order, Order::Random);
  end(4, kServerError, kStart + 865ms);
  EXPECT_EQ(start(5, kStart + 865ms + 1'730ms).order, Order::Random);
  end(5, kDelivered, kStart + 3s);
  EXPECT_EQ(4u, mayStart(kStart + 3s));
  EXPECT_EQ(start(6, kStart + 3s).order, Order::Oldest);
}

TEST_F(TransferPlan, ProbesWithTheNewestRequestToo) {
  Time now = kStart;
  for (std::uint64_t id = 1; id <= 12; ++id, now += 5min) {
    start(id, now);
    end(id, kServerError, now);
  }
  EXPECT_EQ(start(13, now).order, Order::Newest);
  end(13, kServerError, now);
  EXPECT_EQ(start(14, now + 5min).order, Order::Random);
}

TEST_F(TransferPlan, RetriesAFailedRequestOnlyWhenNoNewOneIsQueued) {
  EXPECT_EQ(start(1).order, Order::Oldest);
  end(1, kServerError);
  EXPECT_EQ(plan.nextStart(kStart)->order, Order::Oldest);
  plan.nothingToStart({1, Order::Oldest, false});
  EXPECT_EQ(plan.nextStart(kStart)->order, Order::Retry);
  plan.nothingToStart({1, Order::Retry, false}, kStart + 60s);
  EXPECT_EQ(plan.nextStart(kStart + 59'999ms), std::nullopt);
  EXPECT_EQ(plan.nextWait(kStart).wakeAt, kStart + 60s);
  EXPECT_EQ(plan.nextStart(kStart + 60s)->order, Order::Retry);
}

TEST_F(TransferPlan, ServerErrorReturnsTheFailuresOfTheRequest) {
  const JXTransferStart first = start(1);
  JXTransferEnd end = plan.ended(1, kServerError, {}, 0ms, kStart, 0.5);
  EXPECT_EQ(end.responseClass, JXResponseClass::ServerError);
  EXPECT_EQ(end.failures.count, 1u);
  EXPECT_EQ(end.failures.delay, 1min);
  plan.started(1, first, end.failures);
  end = plan.ended(1, kServerError, 3min, 0ms, kStart, 0.5);
  EXPECT_EQ(end.failures.count, 2u);
  EXPECT_EQ(end.failures.delay, 3min);
  EXPECT_TRUE(end.failures.hasRetryAfter);
}

TEST_F(TransferPlan, RejectsARequestThatFailsForThreeDays) {
  start(1);
  EXPECT_EQ(plan.ended(1, kServerError, {}, 72h - 1ms, kStart, 0.5).responseClass,
            JXResponseClass::ServerError);
  start(1);
  EXPECT_EQ(plan.ended(1, kServerError, {}, 72h, kStart, 0.5).responseClass,
            JXResponseClass::Rejected);
}

TEST_F(TransferPlan, RejectsNoRequestWhileAHostFailsOnEverything) {
  // Five requests of an earlier process had failed.
  plan.setHosts({{1, 0}, {2, 5}});
  const JXTransferStart ofOther{2, Order::Retry, true};
  plan.started(7, ofOther);
  EXPECT_EQ(plan.ended(7, kServerError, {}, 100h, kStart, 0.5).responseClass,
            JXResponseClass::ServerError);
  plan.started(8, ofOther);
  end(8, kDelivered);
  plan.started(7, ofOther);
  EXPECT_EQ(plan.ended(7, kServerError, {}, 100h, kStart, 0.5).responseClass,
            JXResponseClass::Rejected);
}

TEST_F(TransferPlan, HostWithoutAResponseDoesNotDelayAnother) {
  plan.setHosts({{1, 0}, {2, 0}});
  EXPECT_EQ(start(1).host, 1u);
  EXPECT_EQ(start(2).host, 2u);
  end(1, kNoResponse);
  end(2, kDelivered);
  EXPECT_EQ(4u, mayStart(kStart));
  EXPECT_EQ(start(3).host, 2u);
}

TEST_F(TransferPlan, KeepsAtMostEightInFlightAndFourWithoutARecentResponse) {
  plan.setHosts({{1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 0}});
  EXPECT_EQ(4u, mayStart(kStart));  // one to each of four hosts
  for (std::uint64_t id = 1; id <= 3; ++id)
    start(id);
  for (std::uint64_t id = 1; id <= 3; ++id)
    end(id, kDelivered);
  for (std::uint64_t id = 10; id < 18; ++id)
    start(id);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_EQ(8u, plan.inFlight());
}

TEST_F(TransferPlan, KeepsAtMostEightInFlightOverAMultiplexedConnection) {
  start(1);
  end(1, kMultiplexed);
  EXPECT_EQ(8u, mayStart(kStart));
  for (std::uint64_t id = 2; id <= 9; ++id)
    start(id);
  end(2, kDelivered);  // the next connection is not multiplexed
  EXPECT_EQ(0u, mayStart(kStart));
  for (std::uint64_t id = 3; id <= 9; ++id)
    end(id, kDelivered);
  EXPECT_EQ(4u, mayStart(kStart));
}

TEST_F(TransferPlan, SendsOneProbeAfterAFailureOfAMultiplexedConnection) {
  start(1);
  end(1, kMultiplexed);
  start(2);
  end(2, kNoResponse);
  EXPECT_EQ(1u, mayStart(kStart + 10s));
  start(3, kStart + 10s);
  end(3, kMultiplexed, kStart + 10s);
  EXPECT_EQ(8u, mayStart(kStart + 10s));
}

TEST_F(TransferPlan, MultiplexedRequestsDelayNoOtherHost) {
  start(1);
  end(1, kMultiplexed);
  for (std::uint64_t id = 2; id <= 9; ++id)
    start(id);
  plan.setHosts({{1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 0}});
  // One to each of four hosts without a response, as if four were in flight.
  EXPECT_EQ(4u, mayStart(kStart));
  start(10);
  end(10, kMultiplexed);
  plan.setHosts({{1, 0}, {2, 0}});
  EXPECT_EQ(8u, mayStart(kStart));
  for (std::uint64_t id = 11; id <= 18; ++id)
    start(id);
  EXPECT_EQ(0u, mayStart(kStart));
  EXPECT_EQ(16u, plan.inFlight());
}

TEST_F(TransferPlan, PrefersTheHostWithFewerFailures) {
  plan.setHosts({{1, 0}, {2, 0}});
  start(1);
  end(1, kNoResponse);
  EXPECT_EQ(start(2, kStart + 10s).host, 2u);
  end(2, kDelivered, kStart + 10s);
  EXPECT_EQ(start(3, kStart + 10s).host, 2u);
}

TEST_F(TransferPlan, DoesNotSleepWithoutALimitWhileAnotherHostHangs) {
  plan.setHosts({{1, 0}, {2, 0}});
  start(1);
  start(2);
  end(2, kNoResponse);
  EXPECT_EQ(kStart + 500ms, plan.nextWait(kStart).wakeAt);
}

TEST_F(TransferPlan, ForgetsAHostThatIsNoLongerQueued) {
  start(1);
  end(1, kNoResponse);
  EXPECT_EQ(0u, mayStart(kStart));
  plan.setHosts({{2, 0}});
  EXPECT_EQ(plan.pipeline(1), nullptr);
  EXPECT_EQ(start(3).host, 2u);
  plan.setHosts({});
  EXPECT_NE(plan.pipeline(2), nullptr);  // a request is in flight
}

class GatheringPlan : public TransferPlan {
 protected:
  // Delivers a request at kStart, and finds the queue empty then.
  GatheringPlan() {
    plan = JXTransferPlan(JXRetryTimings(), 10ms);
    plan.setHosts({{1, 0}});
    start(1);
    end(1, kDelivered);
    emptyQueue();
    plan.storageChanged(kStart);
  }
};

TEST_F(GatheringPlan, StartsRequestsOnlyAfterTheGatheringTime) {
  plan.requestsAdded();
  EXPECT_EQ(plan.nextStart(kStart + 9ms), std::nullopt);
  EXPECT_EQ(plan.nextWait(kStart + 9ms).wakeAt, kStart + 10ms);
  EXPECT_TRUE(plan.nextWait(kStart + 9ms).ignoresAdditions);
  EXPECT_EQ(mayStart(kStart + 10ms), 4u);
}

TEST_F(GatheringPlan, WakesOnceForAdditionsThatWereNotReported) {
  EXPECT_EQ(plan.nextWait(kStart + 9ms).wakeAt, kStart + 10ms);
  EXPECT_TRUE(plan.nextWait(kStart + 9ms).ignoresAdditions);
  EXPECT_EQ(plan.nextWait(kStart + 10ms).wakeAt, kStart + 1s);
  EXPECT_FALSE(plan.nextWait(kStart + 10ms).ignoresAdditions);
}

TEST_F(GatheringPlan, CountsFromTheLastStart) {
  plan.requestsAdded();
  start(2, kStart + 30ms);
  end(2, kDelivered, kStart + 50ms);
  // A response that took longer than the gathering time causes no further wake-up.
  plan.nothingToStart({1, Order::Oldest, false});
  EXPECT_EQ(plan.nextWait(kStart + 50ms).wakeAt, kStart + 1s);
  EXPECT_FALSE(plan.isGathering(kStart + 50ms));
}

TEST_F(GatheringPlan, KeepsSendingABacklog) {
  plan.requestsAdded();
  start(2, kStart + 10ms);
  start(3, kStart + 10ms);
  EXPECT_EQ(mayStart(kStart + 11ms), 2u);
}

TEST_F(GatheringPlan, GathersForEachHostAlone) {
  plan.setHosts({{1, 0}, {2, 0}});
  plan.requestsAdded();
  EXPECT_EQ(plan.nextStart(kStart)->host, 2u);
}

TEST_F(GatheringPlan, EndsWithAFlush) {
  plan.requestsAdded();
  plan.expedite(kStart);
  EXPECT_FALSE(plan.isGathering(kStart));
  EXPECT_EQ(mayStart(kStart), 4u);
}

}  // namespace
}  // namespace jx
