// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Literals, comparison and sums of JXDecimal.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <type_traits>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"

namespace jx {
namespace {

static_assert(!std::is_constructible_v<JXDecimal, double>);
static_assert(!std::is_constructible_v<JXDecimal, float>);
static_assert(!std::is_constructible_v<JXDecimal, long double>);
static_assert(!std::is_convertible_v<double, JXDecimal>);
static_assert(!std::is_assignable_v<JXDecimal&, double>);
static_assert(!std::is_constructible_v<std::optional<JXDecimal>, double>);
static_assert(!std::is_assignable_v<std::optional<JXDecimal>&, double>);
static_assert(!std::is_constructible_v<JXJsonValue, double>);
static_assert(!std::is_constructible_v<JXDecimal, const char*>);

std::string sum(const char* a, const char* b) {
  const std::string result = (JXDecimal::fromString(a) + JXDecimal::fromString(b)).toString();
  const std::string swapped = (JXDecimal::fromString(b) + JXDecimal::fromString(a)).toString();
  return result == swapped ? result : result + " but swapped " + swapped;
}

std::string nines(std::size_t count) { return std::string(count, '9'); }
std::string zeros(std::size_t count) { return std::string(count, '0'); }

TEST(JXDecimal, LiteralsKeepDigitsAndScale) {
  EXPECT_EQ((12.50_decimal).toString(), "12.50");
  EXPECT_EQ((-4.90_decimal).toString(), "-4.90");
  EXPECT_EQ((100_decimal).toString(), "100");
  EXPECT_EQ((0.10_decimal).toString(), "0.10");
  EXPECT_EQ((1e3_decimal).toString(), "1000");
  EXPECT_EQ((0.1234567890123456789012345678901234567_decimal).toString(),
            "0.1234567890123456789012345678901234567");
  EXPECT_EQ("12.50"_decimal.toString(), "12.50");
  EXPECT_EQ("-0.10"_decimal.toString(), "-0.10");
  EXPECT_TRUE("a lot"_decimal.isNaN());
}

TEST(JXDecimal, AddsExactlyAndKeepsTheLargerScale) {
  EXPECT_EQ(sum("12.5", "0.50"), "13.00");
  EXPECT_EQ(sum("0.1", "0.2"), "0.3");
  EXPECT_EQ(sum("1e3", "1"), "1001");
  EXPECT_EQ(sum("0", "0.00"), "0.00");
  EXPECT_EQ(sum("9999999999999999999", "1"), "10000000000000000000");
  EXPECT_EQ(sum("1e30", "1e-7"), "1" + zeros(30) + ".0000001");
}

TEST(JXDecimal, AddsNumbersOfOppositeSign) {
  EXPECT_EQ(sum("-5", "3"), "-2");
  EXPECT_EQ(sum("5", "-3"), "2");
  EXPECT_EQ(sum("1000", "-0.01"), "999.99");
  EXPECT_EQ(sum("-1000", "0.01"), "-999.99");
  EXPECT_EQ(sum("-1.50", "-2.5"), "-4.00");
  EXPECT_EQ(sum("1.50", "-1.5"), "0.00");
}

TEST(JXDecimal, RoundsASumHalfAwayFromZeroToThirtyEightDigits) {
  EXPECT_EQ(sum(nines(38).c_str(), "1"), "1" + zeros(38));
  EXPECT_EQ(sum(nines(38).c_str(), "0.5"), "1" + zeros(38));
  EXPECT_EQ(sum(("-" + nines(38)).c_str(), "-0.5"), "-1" + zeros(38));
  EXPECT_EQ(sum(nines(38).c_str(), "0.49"), nines(38));
  EXPECT_EQ(sum(("1" + zeros(37)).c_str(), "0.5"), "1" + zeros(36) + "1");
  EXPECT_EQ(sum(("1" + zeros(37)).c_str(), "0.4999999"), "1" + zeros(37));
  EXPECT_EQ(sum(("-1" + zeros(37)).c_str(), "-0.5"), "-1" + zeros(36) + "1");
  EXPECT_EQ(sum("1e127", "1e-128"), "1" + zeros(127));
}

TEST(JXDecimal, ReturnsNaNForASumOutOfRange) {
  EXPECT_EQ(sum((nines(38) + "e127").c_str(), (nines(38) + "e127").c_str()), "NaN");
  EXPECT_EQ(sum((nines(38) + "e126").c_str(), (nines(38) + "e126").c_str()), "2" + zeros(38 + 126));
}

TEST(JXDecimal, AddsInPlaceAndWithIntegers) {
  JXDecimal total;
  for (int i = 0; i < 3; ++i)
    total += 4.90_decimal;
  EXPECT_EQ(total.toString(), "14.70");
  total += 1;
  EXPECT_EQ(total.toString(), "15.70");
  EXPECT_EQ((2 + total).toString(), "17.70");
  total += total;
  EXPECT_EQ(total.toString(), "31.40");
}

TEST(JXDecimal, PropagatesNaNThroughSums) {
  JXDecimal total = 1;
  EXPECT_TRUE((total + JXDecimal::nan()).isNaN());
  EXPECT_TRUE((JXDecimal::nan() + total).isNaN());
  EXPECT_TRUE((-JXDecimal::nan()).isNaN());
  total += JXDecimal::nan();
  total += 1;
  EXPECT_TRUE(total.isNaN());
}

TEST(JXDecimal, OrdersValuesRegardlessOfScale) {
  const char* ascending[] = {"-1e127", "-10", "-2", "-0.5",  "-1e-128", "0",     "1e-128",
                             "0.01",   "0.1", "2",  "10.00", "10.01",   "1e126", "1e127"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      const JXDecimal a = JXDecimal::fromString(ascending[i]);
      const JXDecimal b = JXDecimal::fromString(ascending[j]);
      EXPECT_EQ(a < b, i < j) << ascending[i] << " " << ascending[j];
      EXPECT_EQ(a <= b, i <= j) << ascending[i] << " " << ascending[j];
      EXPECT_EQ(a > b, i > j) << ascending[i] << " " << ascending[j];
      EXPECT_EQ(a >= b, i >= j) << ascending[i] << " " << ascending[j];
    }
  }
  EXPECT_TRUE(12.50_decimal <= 12.5_decimal && 12.50_decimal >= 12.5_decimal);
  EXPECT_FALSE(12.50_decimal < 12.5_decimal || 12.50_decimal > 12.5_decimal);
  EXPECT_FALSE("-0"_decimal < 0_decimal);
  EXPECT_TRUE(5_decimal < 6);
}

TEST(JXDecimal, NaNIsUnordered) {
  const JXDecimal nan = JXDecimal::nan();
  for (const JXDecimal& other : {JXDecimal(0), nan, -1_decimal}) {
    EXPECT_FALSE(nan < other || nan <= other || nan > other || nan >= other || nan == other);
    EXPECT_FALSE(other < nan || other <= nan || other > nan || other >= nan || other == nan);
    EXPECT_TRUE(nan != other && other != nan);
  }
}

}  // namespace
}  // namespace jx
