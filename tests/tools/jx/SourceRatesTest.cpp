// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/SourceRates.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

const SourceRates::Clock::time_point kStart = SourceRates::Clock::now();

int taken(SourceRates& rates, const char* key, SourceRates::Clock::time_point now, int attempts) {
  int count = 0;
  for (int i = 0; i < attempts; ++i)
    count += rates.take("7", key, now) ? 1 : 0;
  return count;
}

TEST(SourceRates, AllowsABurstOfTwoSecondsAndThenTheRate) {
  SourceRates rates(10);
  EXPECT_EQ(taken(rates, "a", kStart, 50), 20);
  EXPECT_EQ(taken(rates, "a", kStart + milliseconds(99), 50), 0);
  EXPECT_EQ(taken(rates, "a", kStart + milliseconds(100), 50), 1);
  EXPECT_EQ(taken(rates, "a", kStart + milliseconds(1'100), 50), 10);
  EXPECT_EQ(taken(rates, "a", kStart + seconds(100), 50), 20);
}

TEST(SourceRates, LimitsEachSourceByItself) {
  SourceRates rates(1);
  EXPECT_EQ(taken(rates, "a", kStart, 5), 2);
  EXPECT_EQ(taken(rates, "b", kStart, 5), 2);
  EXPECT_TRUE(rates.take("8", "a", kStart));
}

TEST(SourceRates, HasNoLimitAtZero) {
  SourceRates rates(0);
  EXPECT_EQ(taken(rates, "a", kStart, 1'000), 1'000);
}

TEST(SourceRates, AllowsNothingMoreWhenTheClockGoesBack) {
  SourceRates rates(1);
  EXPECT_EQ(taken(rates, "a", kStart, 5), 2);
  EXPECT_EQ(taken(rates, "a", kStart - seconds(10), 5), 0);
}

TEST(SourceRates, SourcesAboveTheBoundShareOneLimit) {
  SourceRates rates(1, 16);  // one for each of 16 parts
  int count = 0;
  for (int i = 0; i < 1'000; ++i)
    count += rates.take("7", std::to_string(i), kStart) ? 1 : 0;
  EXPECT_EQ(count, 16 + 16 * 2) << "one event of 16 sources, two of each shared limit";
  // The known sources have sent nothing since, so they make room.
  EXPECT_TRUE(rates.take("7", "another", kStart + seconds(10)));
}

}  // namespace
}  // namespace jx
