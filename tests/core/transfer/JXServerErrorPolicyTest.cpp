// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXServerErrorPolicy.h"

#include <gtest/gtest.h>

#include <limits>

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Time = JXServerErrorState::Time;

constexpr Time kStart{1'000s};

class ServerErrors : public ::testing::Test {
 protected:
  void failNew(std::uint64_t id, double draw = 0) {
    state = afterServerError(state, id, false, {}, kStart, draw);
  }
  void failRetry(std::uint64_t id, double draw = 0) {
    state = afterServerError(state, id, true, {}, kStart, draw);
  }
  JXServerErrorState state;
};

TEST_F(ServerErrors, TwoFailuresInARowStartNoWait) {
  failNew(1);
  failNew(2);
  EXPECT_EQ(state.newUntil, kStart);
  EXPECT_EQ(state.retriesUntil, kStart);
  EXPECT_FALSE(state.isProbing());
}

TEST_F(ServerErrors, WaitDoublesFromTheThirdFailureToFiveMinutes) {
  failNew(1);
  failNew(2);
  std::uint64_t id = 3;
  // 80 % of 1, 2, 4 ... 256, 300, 300 seconds
  for (const milliseconds wait : {800ms, 1'600ms, 3'200ms, 6'400ms, 12'800ms, 25'600ms, 51'200ms,
                                  102'400ms, 204'800ms, 240'000ms, 240'000ms}) {
    failNew(id++);
    EXPECT_EQ(state.newUntil, kStart + wait);
    EXPECT_EQ(state.retriesUntil, kStart + wait);
    EXPECT_TRUE(state.isProbing());
  }
}

TEST_F(ServerErrors, DrawLengthensTheWaitByUpTo13Percent) {
  for (std::uint64_t id = 1; id <= 20; ++id)
    failNew(id, 1.0);
  EXPECT_EQ(state.newUntil, kStart + 279s);
  for (const double invalid : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
    state = JXServerErrorState();
    for (std::uint64_t id = 1; id <= 20; ++id)
      failNew(id, invalid);
    EXPECT_EQ(state.newUntil, kStart + 240s);
  }
}

TEST_F(ServerErrors, RetriesDoNotDelayNewRequests) {
  for (std::uint64_t id = 1; id <= 20; ++id)
    failRetry(id);
  EXPECT_EQ(state.newUntil, kStart);
  EXPECT_EQ(state.retriesUntil, kStart + 240s);
  EXPECT_FALSE(state.isProbing());
}

TEST_F(ServerErrors, RetryCountsAsAnAttemptWhileNewRequestsWait) {
  for (std::uint64_t id = 1; id <= 5; ++id)
    failNew(id);
  ASSERT_EQ(state.newUntil, kStart + 3'200ms);
  state = afterServerError(state, 1, true, {}, kStart + 10s, 0);
  EXPECT_EQ(state.newUntil, kStart + 10s + 3'200ms);
}

TEST_F(ServerErrors, RunCountsEachRequestOnce) {
  for (int i = 0; i < 10; ++i) {
    for (std::uint64_t id = 1; id <= 4; ++id)
      failRetry(id);
  }
  EXPECT_EQ(state.run, 4u);
  EXPECT_FALSE(state.isHostFailing());
  failNew(5);
  EXPECT_TRUE(state.isHostFailing());
  failNew(6);
  EXPECT_EQ(state.run, 5u);
}

TEST_F(ServerErrors, FlushEndsAWaitOneSecondAfterTheFailure) {
  for (std::uint64_t id = 1; id <= 20; ++id)
    failNew(id);
  EXPECT_EQ(shortenWaits(state, {}, kStart + 200ms).newUntil, kStart + 1s);
  EXPECT_EQ(shortenWaits(state, {}, kStart + 200ms).retriesUntil, kStart + 1s);
  EXPECT_EQ(shortenWaits(state, {}, kStart + 5s).newUntil, kStart + 5s);
  EXPECT_EQ(shortenWaits(state, {}, kStart + 240s).newUntil, kStart + 240s);
}

TEST(AfterFailure, DelayDoublesFromOneMinuteToEightHours) {
  JXRequestFailures failures;
  for (const std::chrono::minutes delay :
       {1min, 2min, 4min, 8min, 16min, 32min, 64min, 128min, 256min, 480min, 480min}) {
    failures = afterFailure(failures, false, {}, {});
    EXPECT_EQ(failures.delay, delay);
    EXPECT_FALSE(failures.hasRetryAfter);
  }
  EXPECT_EQ(failures.count, 11u);
}

TEST(AfterFailure, DelayDoesNotGrowWhileTheHostFailsOnEverything) {
  JXRequestFailures failures = afterFailure({}, true, {}, {});
  EXPECT_EQ(failures.count, 1u);
  failures = afterFailure(failures, true, {}, {});
  EXPECT_EQ(failures.count, 1u);
  EXPECT_EQ(failures.delay, 1min);
}

TEST(AfterFailure, RetryAfterLengthensTheDelayUpTo24Hours) {
  EXPECT_EQ(afterFailure({}, false, 30s, {}).delay, 1min);
  EXPECT_TRUE(afterFailure({}, false, 30s, {}).hasRetryAfter);
  EXPECT_EQ(afterFailure({}, false, 2h, {}).delay, 2h);
  EXPECT_EQ(afterFailure({}, false, 48h, {}).delay, 24h);
  EXPECT_FALSE(afterFailure({}, false, 0s, {}).hasRetryAfter);
}

TEST(AfterFailure, LimitsTheDelayWithExtremeTimings) {
  JXRetryTimings timings;
  timings.initialBackoff = milliseconds::max();
  timings.maxBackoff = milliseconds::max();
  timings.maxRetryAfter = milliseconds::max();
  JXRequestFailures failures;
  failures.count = std::numeric_limits<std::uint16_t>::max();
  failures = afterFailure(failures, false, milliseconds::max(), timings);
  EXPECT_EQ(failures.delay, milliseconds(24h * 40));
  EXPECT_EQ(failures.count, std::numeric_limits<std::uint16_t>::max());
  timings.initialBackoff = milliseconds::min();
  timings.maxBackoff = milliseconds::min();
  EXPECT_EQ(afterFailure({}, false, {}, timings).delay, 0ms);
}

TEST(IsPoison, AfterThreeDaysUnlessTheHostFailsOnEverything) {
  JXServerErrorState host;
  EXPECT_FALSE(isPoison(72h - 1ms, host));
  EXPECT_TRUE(isPoison(72h, host));
  host.run = 4;
  EXPECT_TRUE(isPoison(72h, host));
  host.run = 5;
  EXPECT_FALSE(isPoison(24h * 20, host));
}

}  // namespace
}  // namespace jx
