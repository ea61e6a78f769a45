// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXThrottledCheck.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/CheckInterval.h"

namespace jx {
namespace {

using test::CheckInterval;

// Counts how often a check with a given result is made.
class ThrottledCheck : public ::testing::Test {
 protected:
  bool succeeds(bool result) {
    return check_.succeeds([&] {
      ++made_;
      return result;
    });
  }

  JXThrottledCheck check_;
  int made_ = 0;
};

TEST_F(ThrottledCheck, IsSkippedAfterASuccess) {
  const CheckInterval endless(CheckInterval::kEndless);
  EXPECT_TRUE(succeeds(true));
  EXPECT_TRUE(succeeds(false));
  EXPECT_EQ(made_, 1);
}

TEST_F(ThrottledCheck, IsMadeAgainAfterAFailure) {
  const CheckInterval endless(CheckInterval::kEndless);
  EXPECT_FALSE(succeeds(false));
  EXPECT_FALSE(succeeds(false));
  EXPECT_TRUE(succeeds(true));
  EXPECT_EQ(made_, 3);
}

TEST_F(ThrottledCheck, IsMadeAgainWhenTheSuccessIsForgotten) {
  const CheckInterval endless(CheckInterval::kEndless);
  EXPECT_TRUE(succeeds(true));
  check_.forget();
  EXPECT_FALSE(succeeds(false));
  EXPECT_EQ(made_, 2);
}

TEST_F(ThrottledCheck, IsMadeEachTimeWithoutAnInterval) {
  const CheckInterval none(CheckInterval::kNone);
  EXPECT_TRUE(succeeds(true));
  EXPECT_FALSE(succeeds(false));
  EXPECT_EQ(made_, 2);
}

// Ends when the check is made again, or by the time limit of the test.
TEST_F(ThrottledCheck, IsMadeAgainWhenTheIntervalHasPassed) {
  ASSERT_EQ(JXThrottledCheck::interval.load(), std::chrono::milliseconds(10));
  EXPECT_TRUE(succeeds(true));
  while (succeeds(false)) {
  }
  EXPECT_EQ(made_, 2);
}

}  // namespace
}  // namespace jx
