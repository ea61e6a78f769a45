// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryAfter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace jx {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using Wait = std::optional<milliseconds>;

// Sun, 06 Nov 1994 08:49:37 GMT
constexpr std::int64_t kNowMs = 784'111'777'000;
constexpr milliseconds kTenYears = 87'600h;

TEST(RetryAfter, ReadsANumberAsSeconds) {
  EXPECT_EQ(Wait(120s), parseRetryAfter("120", kNowMs));
  EXPECT_EQ(Wait(0s), parseRetryAfter("0", kNowMs));
  EXPECT_EQ(Wait(7s), parseRetryAfter(" \t007\r\n", kNowMs));
}

TEST(RetryAfter, DoesNotOverflowForHugeNumbers) {
  EXPECT_EQ(Wait(kTenYears), parseRetryAfter("9223372036854775808", kNowMs));
  EXPECT_EQ(Wait(kTenYears), parseRetryAfter(std::string(5'000, '9'), kNowMs));
}

TEST(RetryAfter, ReadsTheThreeDateFormats) {
  EXPECT_EQ(Wait(60s), parseRetryAfter("Sun, 06 Nov 1994 08:50:37 GMT", kNowMs));
  EXPECT_EQ(Wait(60s), parseRetryAfter("Sun Nov  6 08:50:37 1994", kNowMs));
  // 2026-02-20 10:00:00 UTC
  EXPECT_EQ(Wait(90s), parseRetryAfter("Friday, 20-Feb-26 10:01:30 GMT", 1'771'581'600'000));
  EXPECT_EQ(Wait(24h), parseRetryAfter("Sat Feb 21 10:00:00 2026", 1'771'581'600'000));
}

TEST(RetryAfter, CountsADateFromTheCurrentMillisecond) {
  EXPECT_EQ(Wait(59'001ms), parseRetryAfter("Sun, 06 Nov 1994 08:50:37 GMT", kNowMs + 999));
}

TEST(RetryAfter, CountsLeapDays) {
  // 2028-02-28 23:00:00 UTC
  EXPECT_EQ(Wait(25h), parseRetryAfter("Wed, 01 Mar 2028 00:00:00 GMT", 1'835'391'600'000));
}

TEST(RetryAfter, AcceptsAClockBefore1970) {
  EXPECT_EQ(Wait(1ms), parseRetryAfter("Thu, 01 Jan 1970 00:00:00 GMT", -1));
  EXPECT_EQ(Wait(1'001ms), parseRetryAfter("Thu, 01 Jan 1970 00:00:01 GMT", -1));
}

TEST(RetryAfter, AcceptsADateInTheFirstMonthsOfTheYearZero) {
  // Two seconds before 0000-01-01 00:00:00 UTC.
  EXPECT_EQ(Wait(2s), parseRetryAfter("Sat, 01 Jan 0000 00:00:00 GMT", -62'167'219'202'000));
}

TEST(RetryAfter, ReturnsZeroForAPastDate) {
  EXPECT_EQ(Wait(0s), parseRetryAfter("Sun, 06 Nov 1994 08:49:37 GMT", kNowMs));
  EXPECT_EQ(Wait(0s), parseRetryAfter("Sat, 05 Nov 1994 08:49:37 GMT", kNowMs));
  EXPECT_EQ(Wait(0s), parseRetryAfter("Sun, 06 Nov 1994 08:49:37 GMT",
                                      std::numeric_limits<std::int64_t>::max()));
}

TEST(RetryAfter, DoesNotOverflowForDatesInTheFarFuture) {
  EXPECT_EQ(Wait(kTenYears), parseRetryAfter("Fri, 31 Dec 9999 23:59:59 GMT", kNowMs));
  EXPECT_EQ(Wait(kTenYears), parseRetryAfter("Fri, 31 Dec 9999 23:59:59 GMT",
                                             std::numeric_limits<std::int64_t>::min()));
}

TEST(RetryAfter, ReturnsNothingForAnInvalidHeader) {
  for (const char* header : {"",
                             "  ",
                             "-5",
                             "+5",
                             "1.5",
                             "5 s",
                             "12a",
                             "soon",
                             "Sun",
                             "Sun, 06 Nov 1994",
                             "Sun, 06 Nov 1994 08:49:37",
                             "Sun, 06 Nov 1994 08:49:37 CET",
                             "Sun, 06 Nov 1994 08:49:37 GMT and more",
                             "Sun, 6 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nux 1994 08:49:37 GMT",
                             "Sun, 06 ovD 1994 08:49:37 GMT",
                             "Sun, 00 Nov 1994 08:49:37 GMT",
                             "Sun, 32 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 24:49:37 GMT",
                             "Sun, 06 Nov 1994 08:60:37 GMT",
                             "Sun, 06 Nov 1994 08:49:61 GMT",
                             "Sun, 06-Nov 94 08:49:37 GMT",
                             "Sun Nov  6 08:49:37 94",
                             ", 06 Nov 1994 08:49:37 GMT"}) {
    EXPECT_EQ(std::nullopt, parseRetryAfter(header, kNowMs)) << header;
  }
}

TEST(RequestedDelay, ComparesADateWithTheDateOfTheResponse) {
  // The clock of the device is 40 days slow, and 10 years fast.
  for (const std::int64_t nowMs : {kNowMs - 3'456'000'000, kNowMs + 315'360'000'000}) {
    EXPECT_EQ(Wait(60s), requestedDelay("Sun, 06 Nov 1994 08:50:37 GMT",
                                        "Sun, 06 Nov 1994 08:49:37 GMT", nowMs, 1s));
    EXPECT_EQ(Wait(60s), requestedDelay("Sun Nov  6 08:50:37 1994", " Sun Nov  6 08:49:37 1994\r\n",
                                        nowMs, 1s));
    EXPECT_EQ(Wait(0s), requestedDelay("Sun, 06 Nov 1994 08:49:37 GMT",
                                       "Sun, 06 Nov 1994 08:49:37 GMT", nowMs, 1s));
  }
}

TEST(RequestedDelay, LimitsADateWithoutTheDateOfTheResponse) {
  for (const char* date : {"", "now", "0", "Sun, 06 Nov 1994 25:49:37 GMT"}) {
    EXPECT_EQ(Wait(5min), requestedDelay("Sun, 06 Nov 1994 12:00:00 GMT", date, kNowMs, 5min));
    EXPECT_EQ(Wait(60s), requestedDelay("Sun, 06 Nov 1994 08:50:37 GMT", date, kNowMs, 5min));
  }
}

TEST(RequestedDelay, DoesNotLimitSeconds) {
  EXPECT_EQ(Wait(2h), requestedDelay("7200", "", kNowMs, 5min));
  EXPECT_EQ(Wait(2h), requestedDelay(" 7200", "Sun, 06 Nov 1994 08:49:37 GMT", kNowMs, 5min));
}

TEST(RequestedDelay, ReturnsNothingForAnInvalidHeader) {
  EXPECT_EQ(std::nullopt, requestedDelay("", "Sun, 06 Nov 1994 08:49:37 GMT", kNowMs, 5min));
  EXPECT_EQ(std::nullopt, requestedDelay("soon", "", kNowMs, 5min));
}

}  // namespace
}  // namespace jx
