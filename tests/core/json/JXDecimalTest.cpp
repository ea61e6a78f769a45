// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXDecimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace jx {
namespace {

std::string printed(const JXString& text) { return JXDecimal::fromString(text).toString(); }

std::string zeros(std::size_t count) { return std::string(count, '0'); }
std::string nines(std::size_t count) { return std::string(count, '9'); }

TEST(JXDecimal, DefaultsToZero) {
  EXPECT_EQ(JXDecimal().toString(), "0");
  EXPECT_FALSE(JXDecimal().isNaN());
}

TEST(JXDecimal, KeepsDigitsAndScaleOfAString) {
  EXPECT_EQ(printed("12.50"), "12.50");
  EXPECT_EQ(printed("-12.50"), "-12.50");
  EXPECT_EQ(printed("0.10"), "0.10");
  EXPECT_EQ(printed("100"), "100");
  EXPECT_EQ(printed("0.00"), "0.00");
  EXPECT_EQ(printed("1.000000000000000000000000000000"), "1.000000000000000000000000000000");
  EXPECT_EQ(printed("0.000000000000000001"), "0.000000000000000001");
  EXPECT_EQ(printed("9999999999999999999"), "9999999999999999999");
  EXPECT_EQ(printed("10000000000000000000"), "10000000000000000000");
  EXPECT_EQ(printed("10000000000000000001"), "10000000000000000001");
}

TEST(JXDecimal, DropsPlusSignAndLeadingZeros) {
  EXPECT_EQ(printed("+3"), "3");
  EXPECT_EQ(printed("007"), "7");
  EXPECT_EQ(printed("-007.50"), "-7.50");
  EXPECT_EQ(printed("000"), "0");
  EXPECT_EQ(printed("00.5"), "0.5");
  EXPECT_EQ(printed(zeros(500) + "1"), "1");
}

TEST(JXDecimal, AcceptsAPointWithDigitsOnOneSideOnly) {
  EXPECT_EQ(printed(".5"), "0.5");
  EXPECT_EQ(printed("-.5"), "-0.5");
  EXPECT_EQ(printed("5."), "5");
}

TEST(JXDecimal, KeepsTheSignOfNegativeZeroWhichEqualsZero) {
  EXPECT_EQ(printed("-0"), "-0");
  EXPECT_EQ(JXDecimal::fromString("-0"), JXDecimal(0));
  EXPECT_EQ(JXDecimal::fromString("-0.00"), JXDecimal::fromString("0"));
}

TEST(JXDecimal, ExpandsExponents) {
  EXPECT_EQ(printed("1e3"), "1000");
  EXPECT_EQ(printed("1E3"), "1000");
  EXPECT_EQ(printed("1e+3"), "1000");
  EXPECT_EQ(printed("1.5e3"), "1500");
  EXPECT_EQ(printed("12.50e1"), "125.0");
  EXPECT_EQ(printed("1e-3"), "0.001");
  EXPECT_EQ(printed("-1.25e-2"), "-0.0125");
  EXPECT_EQ(printed("1e0"), "1");
  EXPECT_EQ(printed("1e-0"), "1");
  EXPECT_EQ(printed("1e00000000000000000000003"), "1000");
  EXPECT_EQ(printed("0e5"), "0");
}

TEST(JXDecimal, StoresThirtyEightDigits) {
  EXPECT_EQ(printed("12345678901234567890123456789012345678"),
            "12345678901234567890123456789012345678");
  EXPECT_EQ(printed("-1234567890123456789.0123456789012345678"),
            "-1234567890123456789.0123456789012345678");
  EXPECT_EQ(printed(nines(38)), nines(38));
  EXPECT_EQ(printed("0.00000" + nines(38)), "0.00000" + nines(38));
}

TEST(JXDecimal, RoundsHalfAwayFromZeroAfterThirtyEightDigits) {
  EXPECT_EQ(printed("1234567890123456789012345678901234567.84"),
            "1234567890123456789012345678901234567.8");
  EXPECT_EQ(printed("1234567890123456789012345678901234567.85"),
            "1234567890123456789012345678901234567.9");
  EXPECT_EQ(printed("-1234567890123456789012345678901234567.85"),
            "-1234567890123456789012345678901234567.9");
  EXPECT_EQ(printed("1234567890123456789012345678901234567.849999"),
            "1234567890123456789012345678901234567.8");
  EXPECT_EQ(printed("123456789012345678901234567890123456785"),
            "123456789012345678901234567890123456790");
  EXPECT_EQ(printed("123456789012345678901234567890123456784"),
            "123456789012345678901234567890123456780");
}

TEST(JXDecimal, CarriesThroughEveryDigitWhenRoundingUp) {
  EXPECT_EQ(printed(nines(39)), "1" + zeros(39));
  EXPECT_EQ(printed("-" + nines(39)), "-1" + zeros(39));
  EXPECT_EQ(printed("0." + nines(39)), "1." + zeros(37));
  // Carries within the lower half only.
  EXPECT_EQ(printed("1" + nines(37) + "5"), "2" + zeros(38));
}

TEST(JXDecimal, DoesNotCountLeadingZerosAsSignificantDigits) {
  EXPECT_EQ(printed(zeros(100) + "12345678901234567890123456789012345678"),
            "12345678901234567890123456789012345678");
  EXPECT_EQ(printed("0." + zeros(50) + "1"), "0." + zeros(50) + "1");
}

TEST(JXDecimal, AcceptsTheLargestAndSmallestExponents) {
  EXPECT_EQ(printed("1e127"), "1" + zeros(127));
  EXPECT_EQ(printed("-9e127"), "-9" + zeros(127));
  EXPECT_EQ(printed(nines(38) + "e127"), nines(38) + zeros(127));
  EXPECT_EQ(printed("1e-128"), "0." + zeros(127) + "1");
  EXPECT_EQ(printed("-1e-128"), "-0." + zeros(127) + "1");
  EXPECT_EQ(printed(nines(38) + "e-128"), "0." + zeros(90) + nines(38));
}

TEST(JXDecimal, ReturnsNaNForAMagnitudeOutOfRange) {
  EXPECT_TRUE(JXDecimal::fromString(nines(38) + "e128").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("-" + nines(38) + "e128").isNaN());
  // Rounds up to 1e166.
  EXPECT_TRUE(JXDecimal::fromString(nines(39) + "e127").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("1e165").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("1" + zeros(165)).isNaN());
  EXPECT_TRUE(JXDecimal::fromString("1e-130").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("0." + zeros(400) + "1").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("1e99999999999999999999").isNaN());
  EXPECT_TRUE(JXDecimal::fromString("1e-99999999999999999999").isNaN());
}

TEST(JXDecimal, MovesAnExcessExponentIntoTheDigits) {
  // 1e128 equals 10e127, which fits the 38 digits and the largest exponent.
  EXPECT_EQ(printed("1e128"), "1" + zeros(128));
  EXPECT_EQ(printed("1e164"), "1" + zeros(164));
}

TEST(JXDecimal, AcceptsZeroWithAnyExponent) {
  EXPECT_EQ(printed("0e99999"), "0");
  EXPECT_EQ(JXDecimal::fromString("0e-99999"), JXDecimal(0));
  EXPECT_EQ(JXDecimal::fromString("0." + zeros(5000)), JXDecimal(0));
}

TEST(JXDecimal, RoundsDigitsBelowTheSmallestExponent) {
  EXPECT_EQ(printed("1.4e-128"), "0." + zeros(127) + "1");
  EXPECT_EQ(printed("1.5e-128"), "0." + zeros(127) + "2");
}

TEST(JXDecimal, ReturnsNaNForAStringThatIsNotANumber) {
  const JXString texts[] = {nullptr,        "",      " ",   "abc", "1,5",      "1 ",    " 1",
                            "1 2",          "--1",   "+-1", "1-",  ".",        "-",     "+",
                            "-.",           "1.2.3", "1e",  "1e+", "e5",       ".e5",   "0x10",
                            "1e1.5",        "NaN",   "nan", "inf", "Infinity", "1_000", "1\n",
                            "\xEF\xBC\x91", "1e--1", "1d",  "1f"};
  for (const JXString& text : texts) {
    EXPECT_TRUE(JXDecimal::fromString(text).isNaN()) << text;
    EXPECT_EQ(printed(text), "NaN") << text;
  }
}

TEST(JXDecimal, RejectsAnEmbeddedNul) {
  EXPECT_TRUE(JXDecimal::fromString(std::string("1\0", 2)).isNaN());
  EXPECT_TRUE(JXDecimal::fromString(std::string("1\0002", 3)).isNaN());
  EXPECT_TRUE(JXDecimal::fromString(std::string("\0", 1)).isNaN());
}

TEST(JXDecimal, ParsesAVeryLongString) {
  EXPECT_EQ(printed("0." + std::string(1'000'000, '3')), "0." + std::string(38, '3'));
  EXPECT_TRUE(JXDecimal::fromString(std::string(1'000'000, '3')).isNaN());
}

TEST(JXDecimal, ConvertsEveryIntegerExactly) {
  EXPECT_EQ(JXDecimal(0).toString(), "0");
  EXPECT_EQ(JXDecimal(-1).toString(), "-1");
  EXPECT_EQ(JXDecimal(std::int8_t{-128}).toString(), "-128");
  EXPECT_EQ(JXDecimal(std::uint8_t{200}).toString(), "200");
  EXPECT_EQ(JXDecimal(std::numeric_limits<std::int64_t>::min()).toString(), "-9223372036854775808");
  EXPECT_EQ(JXDecimal(std::numeric_limits<std::int64_t>::max()).toString(), "9223372036854775807");
  EXPECT_EQ(JXDecimal(std::numeric_limits<std::uint64_t>::max()).toString(),
            "18446744073709551615");
}

TEST(JXDecimal, DoesNotConvertBoolsCharactersAndFloatingPoint) {
  EXPECT_FALSE((std::is_constructible_v<JXDecimal, bool>));
  EXPECT_FALSE((std::is_constructible_v<JXDecimal, char>));
  EXPECT_FALSE((std::is_constructible_v<JXDecimal, wchar_t>));
  EXPECT_FALSE((std::is_constructible_v<JXDecimal, double>));
  EXPECT_FALSE((std::is_constructible_v<JXDecimal, float>));
  EXPECT_TRUE((std::is_constructible_v<JXDecimal, int>));
}

TEST(JXDecimal, ComparesValuesRegardlessOfScale) {
  const std::pair<const char*, const char*> equal[] = {{"12.50", "12.5"},   {"100", "1e2"},
                                                       {"0", "0.000"},      {"-0.10", "-0.1"},
                                                       {"1e127", "10e126"}, {"0.001", "1e-3"}};
  for (const auto& [a, b] : equal) {
    EXPECT_EQ(JXDecimal::fromString(a), JXDecimal::fromString(b)) << a << " " << b;
  }
  const std::pair<const char*, const char*> different[] = {
      {"12.50", "12.51"}, {"1", "-1"}, {"1", "10"}, {"0.1", "0.01"}, {"0", "1e-128"}};
  for (const auto& [a, b] : different) {
    EXPECT_NE(JXDecimal::fromString(a), JXDecimal::fromString(b)) << a << " " << b;
  }
}

TEST(JXDecimal, NaNEqualsNoValue) {
  const JXDecimal nan = JXDecimal::nan();
  EXPECT_TRUE(nan.isNaN());
  EXPECT_FALSE(nan == nan);
  EXPECT_TRUE(nan != JXDecimal(0));
  EXPECT_TRUE(JXDecimal(0) != nan);
}

TEST(JXDecimal, WritesItselfToAStream) {
  std::ostringstream out;
  out << JXDecimal::fromString("-1.50") << " " << JXDecimal::nan();
  EXPECT_EQ(out.str(), "-1.50 NaN");
}

TEST(JXDecimal, FormatsNumbersAtTheLimitOfTheFastPath) {
  for (const char* text :
       {"0", "-0.5", "18446744073709551", "9999999999999999999", "-9999999999999999999",
        "0.0000000000000000001", "-0.9999999999999999999", "0.00000000000000000001",
        "10000000000000000000", "-1.0000000000000000000"}) {
    EXPECT_EQ(JXDecimal::fromString(text).toString(), text);
  }
}

}  // namespace
}  // namespace jx
