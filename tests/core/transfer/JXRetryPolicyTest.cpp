// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryPolicy.h"

#include <gtest/gtest.h>

#include <limits>

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Time = JXRetryState::Time;

const Time kStart = Time(1'000s);

JXResponseClass classifyStatus(int status) {
  return classifyResponse(JXAttemptResult{status, false});
}

JXCompletedAttempt failureOf(const JXRetryState& state,
                             std::optional<milliseconds> retryAfter = {}) {
  return {state.round, JXResponseClass::Retry, retryAfter};
}

TEST(Verdict, EveryTwoHundredIsDelivered) {
  for (int status = 200; status < 300; ++status) {
    EXPECT_EQ(JXResponseClass::Delivered, classifyStatus(status)) << status;
  }
}

TEST(Verdict, NoAnswerAndInterimAnswersAreTriedAgain) {
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(0));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(100));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(103));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(199));
}

TEST(Verdict, RedirectsAreRejected) {
  for (int status = 300; status < 400; ++status) {
    EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(status)) << status;
  }
}

TEST(Verdict, FourHundredsAreRejectedButForThreeThatAskToComeBack) {
  for (int status = 400; status < 500; ++status) {
    const bool comesBack = status == 408 || status == 425 || status == 429;
    EXPECT_EQ(comesBack ? JXResponseClass::Retry : JXResponseClass::Rejected,
              classifyStatus(status))
        << status;
  }
}

TEST(Verdict, EveryFiveHundredIsTriedAgain) {
  for (int status = 500; status < 600; ++status) {
    EXPECT_EQ(JXResponseClass::Retry, classifyStatus(status)) << status;
  }
}

TEST(Verdict, StatusesBeyondTheKnownClassesAreRejected) {
  EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(600));
  EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(999));
}

TEST(Verdict, ARequestThatCannotBeSentIsRejected) {
  EXPECT_EQ(JXResponseClass::Rejected, classifyResponse(JXAttemptResult{0, true}));
}

TEST(RetryStep, TheLongestPauseDoublesFromOneSecondToFiveMinutes) {
  const milliseconds expected[] = {1s, 2s, 4s, 8s, 16s, 32s, 64s, 128s, 256s, 300s, 300s, 300s};
  JXRetryState state;
  for (const milliseconds longest : expected) {
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
    EXPECT_EQ(kStart + longest / 2, state.pausedUntil);
  }
}

TEST(RetryStep, TheJitterReachesFromNothingToTheWholePause) {
  const JXRetryState none = nextStep({}, failureOf({}), {}, kStart, 0.0);
  EXPECT_EQ(kStart, none.pausedUntil);
  EXPECT_FALSE(none.isPaused(kStart));
  const JXRetryState most = nextStep({}, failureOf({}), {}, kStart, 0.9999);
  EXPECT_EQ(kStart + 999ms, most.pausedUntil);
  EXPECT_TRUE(most.isPaused(kStart + 998ms));
  EXPECT_FALSE(most.isPaused(kStart + 999ms));
}

TEST(RetryStep, ADrawOutsideItsRangeStaysWithinThePause) {
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), {}, kStart, -3.0).pausedUntil);
  EXPECT_EQ(kStart + 1s, nextStep({}, failureOf({}), {}, kStart, 7.0).pausedUntil);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), {}, kStart, nan).pausedUntil);
}

TEST(RetryStep, SeveralFailuresOfOneRoundAreOneStep) {
  const JXRetryState first;
  JXRetryState state = nextStep(first, failureOf(first), {}, kStart, 0.5);
  const JXCompletedAttempt ofTheSameRound = failureOf(first);
  state = nextStep(state, ofTheSameRound, {}, kStart + 10ms, 0.9);
  state = nextStep(state, ofTheSameRound, {}, kStart + 900ms, 0.9);
  EXPECT_EQ(1u, state.failures);
  EXPECT_EQ(kStart + 500ms, state.pausedUntil);
}

TEST(RetryStep, ALaterFailureOfTheRoundMayAskForALongerPause) {
  const JXRetryState first;
  JXRetryState state = nextStep(first, failureOf(first), {}, kStart, 0.5);
  state = nextStep(state, failureOf(first, 60s), {}, kStart + 10ms, 0.5);
  EXPECT_EQ(1u, state.failures);
  EXPECT_EQ(kStart + 10ms + 60s, state.pausedUntil);
  EXPECT_TRUE(state.askedToWait);
}

TEST(RetryStep, SuccessStartsOver) {
  JXRetryState state;
  for (int i = 0; i < 5; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  state = nextStep(state, {state.round, JXResponseClass::Delivered, {}}, {}, kStart + 60s, 0.5);
  EXPECT_EQ(0u, state.failures);
  EXPECT_FALSE(state.isPaused(kStart + 60s));
  state = nextStep(state, failureOf(state), {}, kStart + 60s, 0.5);
  EXPECT_EQ(kStart + 60s + 500ms, state.pausedUntil);
}

TEST(RetryStep, ARejectionIsAnAnswerAndStartsOver) {
  JXRetryState state;
  for (int i = 0; i < 3; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  state = nextStep(state, {state.round, JXResponseClass::Rejected, {}}, {}, kStart + 60s, 0.5);
  EXPECT_EQ(0u, state.failures);
}

TEST(RetryStep, ASuccessOfAnEndedRoundLeavesThePause) {
  const JXRetryState first;
  const JXRetryState paused = nextStep(first, failureOf(first), {}, kStart, 0.5);
  const JXRetryState after =
      nextStep(paused, {first.round, JXResponseClass::Delivered, {}}, {}, kStart + 1ms, 0.5);
  EXPECT_EQ(1u, after.failures);
  EXPECT_EQ(kStart + 500ms, after.pausedUntil);
}

TEST(RetryStep, RetryAfterIsTheLeastPause) {
  EXPECT_EQ(kStart + 30s, nextStep({}, failureOf({}, 30s), {}, kStart, 0.5).pausedUntil);
  EXPECT_EQ(kStart + 500ms, nextStep({}, failureOf({}, 100ms), {}, kStart, 0.5).pausedUntil);
  EXPECT_EQ(kStart + 500ms, nextStep({}, failureOf({}, 0ms), {}, kStart, 0.5).pausedUntil);
}

TEST(RetryStep, RetryAfterIsObeyedForAtMostADay) {
  EXPECT_EQ(kStart + 24h, nextStep({}, failureOf({}, 24h), {}, kStart, 0.5).pausedUntil);
  EXPECT_EQ(kStart + 24h, nextStep({}, failureOf({}, 25h), {}, kStart, 0.5).pausedUntil);
  EXPECT_EQ(kStart + 24h,
            nextStep({}, failureOf({}, milliseconds::max()), {}, kStart, 0.5).pausedUntil);
}

TEST(RetryStep, TheCountOfFailuresDoesNotOverflow) {
  JXRetryState state;
  state.failures = std::numeric_limits<std::uint32_t>::max();
  state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  EXPECT_EQ(std::numeric_limits<std::uint32_t>::max(), state.failures);
  EXPECT_EQ(kStart + 150s, state.pausedUntil);
}

TEST(RetryStep, SenselessTimingsDoNotOverflow) {
  JXRetryTimings endless;
  endless.initialBackoff = milliseconds::max();
  endless.maxBackoff = milliseconds::max();
  EXPECT_EQ(kStart + 4380h, nextStep({}, failureOf({}), endless, kStart, 0.5).pausedUntil);
  JXRetryTimings negative;
  negative.initialBackoff = -5s;
  negative.maxBackoff = -1s;
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), negative, kStart, 0.5).pausedUntil);
}

TEST(CutPause, APauseEndsOneFirstPauseAfterTheFailure) {
  JXRetryState state;
  for (int i = 0; i < 6; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  ASSERT_EQ(kStart + 16s, state.pausedUntil);
  EXPECT_EQ(kStart + 1s, shortenBackoff(state, {}, kStart + 200ms).pausedUntil);
  EXPECT_EQ(kStart + 5s, shortenBackoff(state, {}, kStart + 5s).pausedUntil);
}

TEST(CutPause, APauseIsNeverMadeLonger) {
  const JXRetryState state = nextStep({}, failureOf({}), {}, kStart, 0.5);
  EXPECT_EQ(kStart + 500ms, shortenBackoff(state, {}, kStart + 1ms).pausedUntil);
  EXPECT_EQ(kStart + 500ms, shortenBackoff(state, {}, kStart + 700ms).pausedUntil);
}

TEST(CutPause, APauseThatTheReceiverAskedForIsKept) {
  const JXRetryState state = nextStep({}, failureOf({}, 30s), {}, kStart, 0.5);
  EXPECT_EQ(kStart + 30s, shortenBackoff(state, {}, kStart + 5s).pausedUntil);
}

}  // namespace
}  // namespace jx
