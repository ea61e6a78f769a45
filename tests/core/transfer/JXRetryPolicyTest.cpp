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

TEST(ClassifyResponse, ReturnsDeliveredFor2xx) {
  for (int status = 200; status < 300; ++status) {
    EXPECT_EQ(JXResponseClass::Delivered, classifyStatus(status)) << status;
  }
}

TEST(ClassifyResponse, ReturnsRetryWithoutAFinalResponse) {
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(0));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(100));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(103));
  EXPECT_EQ(JXResponseClass::Retry, classifyStatus(199));
}

TEST(ClassifyResponse, ReturnsRejectedForRedirects) {
  for (int status = 300; status < 400; ++status) {
    EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(status)) << status;
  }
}

TEST(ClassifyResponse, ReturnsRejectedFor4xxExcept408And425And429) {
  for (int status = 400; status < 500; ++status) {
    const bool isRetried = status == 408 || status == 425 || status == 429;
    EXPECT_EQ(isRetried ? JXResponseClass::Retry : JXResponseClass::Rejected,
              classifyStatus(status))
        << status;
  }
}

TEST(ClassifyResponse, ReturnsServerErrorFor5xxExcept503) {
  for (int status = 500; status < 600; ++status) {
    EXPECT_EQ(status == 503 ? JXResponseClass::Retry : JXResponseClass::ServerError,
              classifyStatus(status))
        << status;
  }
}

TEST(ClassifyResponse, ReturnsRejectedForUnknownStatusClasses) {
  EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(600));
  EXPECT_EQ(JXResponseClass::Rejected, classifyStatus(999));
}

TEST(ClassifyResponse, ReturnsRejectedForARequestThatCannotBeSent) {
  EXPECT_EQ(JXResponseClass::Rejected, classifyResponse(JXAttemptResult{0, true}));
}

TEST(NextStep, DoublesTheBackoffFromOneSecondToFiveMinutes) {
  const milliseconds expected[] = {1s, 2s, 4s, 8s, 16s, 32s, 64s, 128s, 256s, 300s, 300s, 300s};
  JXRetryState state;
  for (const milliseconds longest : expected) {
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
    EXPECT_EQ(kStart + longest / 2, state.backoffUntil);
  }
}

TEST(NextStep, JitterCoversTheWholeBackoff) {
  const JXRetryState none = nextStep({}, failureOf({}), {}, kStart, 0.0);
  EXPECT_EQ(kStart, none.backoffUntil);
  EXPECT_FALSE(none.isBackingOff(kStart));
  const JXRetryState most = nextStep({}, failureOf({}), {}, kStart, 0.9999);
  EXPECT_EQ(kStart + 999ms, most.backoffUntil);
  EXPECT_TRUE(most.isBackingOff(kStart + 998ms));
  EXPECT_FALSE(most.isBackingOff(kStart + 999ms));
}

TEST(NextStep, ClampsADrawOutsideItsRange) {
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), {}, kStart, -3.0).backoffUntil);
  EXPECT_EQ(kStart + 1s, nextStep({}, failureOf({}), {}, kStart, 7.0).backoffUntil);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), {}, kStart, nan).backoffUntil);
}

TEST(NextStep, CountsSeveralFailuresOfARoundOnce) {
  const JXRetryState first;
  JXRetryState state = nextStep(first, failureOf(first), {}, kStart, 0.5);
  const JXCompletedAttempt failureOfTheSameRound = failureOf(first);
  state = nextStep(state, failureOfTheSameRound, {}, kStart + 10ms, 0.9);
  state = nextStep(state, failureOfTheSameRound, {}, kStart + 900ms, 0.9);
  EXPECT_EQ(1u, state.failures);
  EXPECT_EQ(kStart + 500ms, state.backoffUntil);
}

TEST(NextStep, ExtendsTheBackoffByALaterRetryAfterOfTheRound) {
  const JXRetryState first;
  JXRetryState state = nextStep(first, failureOf(first), {}, kStart, 0.5);
  state = nextStep(state, failureOf(first, 60s), {}, kStart + 10ms, 0.5);
  EXPECT_EQ(1u, state.failures);
  EXPECT_EQ(kStart + 10ms + 60s, state.backoffUntil);
  EXPECT_TRUE(state.hasRetryAfter);
}

TEST(NextStep, ResetsTheBackoffAfterASuccess) {
  JXRetryState state;
  for (int i = 0; i < 5; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  state = nextStep(state, {state.round, JXResponseClass::Delivered, {}}, {}, kStart + 60s, 0.5);
  EXPECT_EQ(0u, state.failures);
  EXPECT_FALSE(state.isBackingOff(kStart + 60s));
  state = nextStep(state, failureOf(state), {}, kStart + 60s, 0.5);
  EXPECT_EQ(kStart + 60s + 500ms, state.backoffUntil);
}

TEST(NextStep, ResetsTheBackoffAfterARejection) {
  JXRetryState state;
  for (int i = 0; i < 3; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  state = nextStep(state, {state.round, JXResponseClass::Rejected, {}}, {}, kStart + 60s, 0.5);
  EXPECT_EQ(0u, state.failures);
}

TEST(NextStep, KeepsTheBackoffAfterASuccessOfAnEndedRound) {
  const JXRetryState first;
  const JXRetryState backingOff = nextStep(first, failureOf(first), {}, kStart, 0.5);
  const JXRetryState after =
      nextStep(backingOff, {first.round, JXResponseClass::Delivered, {}}, {}, kStart + 1ms, 0.5);
  EXPECT_EQ(1u, after.failures);
  EXPECT_EQ(kStart + 500ms, after.backoffUntil);
}

TEST(NextStep, WaitsAtLeastTheRetryAfter) {
  EXPECT_EQ(kStart + 30s, nextStep({}, failureOf({}, 30s), {}, kStart, 0.5).backoffUntil);
  EXPECT_EQ(kStart + 500ms, nextStep({}, failureOf({}, 100ms), {}, kStart, 0.5).backoffUntil);
  EXPECT_EQ(kStart + 500ms, nextStep({}, failureOf({}, 0ms), {}, kStart, 0.5).backoffUntil);
}

TEST(NextStep, LimitsRetryAfterToADay) {
  EXPECT_EQ(kStart + 24h, nextStep({}, failureOf({}, 24h), {}, kStart, 0.5).backoffUntil);
  EXPECT_EQ(kStart + 24h, nextStep({}, failureOf({}, 25h), {}, kStart, 0.5).backoffUntil);
  EXPECT_EQ(kStart + 24h,
            nextStep({}, failureOf({}, milliseconds::max()), {}, kStart, 0.5).backoffUntil);
}

TEST(NextStep, DoesNotOverflowTheFailureCount) {
  JXRetryState state;
  state.failures = std::numeric_limits<std::uint32_t>::max();
  state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  EXPECT_EQ(std::numeric_limits<std::uint32_t>::max(), state.failures);
  EXPECT_EQ(kStart + 150s, state.backoffUntil);
}

TEST(NextStep, DoesNotOverflowForInvalidTimings) {
  JXRetryTimings endless;
  endless.initialBackoff = milliseconds::max();
  endless.maxBackoff = milliseconds::max();
  EXPECT_EQ(kStart + 4380h, nextStep({}, failureOf({}), endless, kStart, 0.5).backoffUntil);
  JXRetryTimings negative;
  negative.initialBackoff = -5s;
  negative.maxBackoff = -1s;
  EXPECT_EQ(kStart, nextStep({}, failureOf({}), negative, kStart, 0.5).backoffUntil);
}

TEST(ShortenBackoff, EndsOneInitialBackoffAfterTheFailure) {
  JXRetryState state;
  for (int i = 0; i < 6; ++i)
    state = nextStep(state, failureOf(state), {}, kStart, 0.5);
  ASSERT_EQ(kStart + 16s, state.backoffUntil);
  EXPECT_EQ(kStart + 1s, shortenBackoff(state, {}, kStart + 200ms).backoffUntil);
  EXPECT_EQ(kStart + 5s, shortenBackoff(state, {}, kStart + 5s).backoffUntil);
}

TEST(ShortenBackoff, NeverExtendsABackoff) {
  const JXRetryState state = nextStep({}, failureOf({}), {}, kStart, 0.5);
  EXPECT_EQ(kStart + 500ms, shortenBackoff(state, {}, kStart + 1ms).backoffUntil);
  EXPECT_EQ(kStart + 500ms, shortenBackoff(state, {}, kStart + 700ms).backoffUntil);
}

TEST(ShortenBackoff, KeepsARetryAfter) {
  const JXRetryState state = nextStep({}, failureOf({}, 30s), {}, kStart, 0.5);
  EXPECT_EQ(kStart + 30s, shortenBackoff(state, {}, kStart + 5s).backoffUntil);
}

}  // namespace
}  // namespace jx
