// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonObject.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

std::string printed(double value) { return JXDecimal::fromDouble(value).toString(); }

TEST(JXDecimalFromDouble, ReturnsShortestRoundTripDigits) {
  EXPECT_EQ(printed(0.1), "0.1");
  EXPECT_EQ(printed(-0.1), "-0.1");
  EXPECT_EQ(printed(0.3), "0.3");
  EXPECT_EQ(printed(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(printed(12.5), "12.5");
  EXPECT_EQ(printed(100.0), "100");
  EXPECT_EQ(printed(1e23), "100000000000000000000000");
  EXPECT_EQ(printed(123456789.123), "123456789.123");
  EXPECT_EQ(printed(9007199254740993.0), "9007199254740992");
  EXPECT_EQ(printed(1.7976931348623157e100), "17976931348623157" + std::string(84, '0'));
  EXPECT_EQ(printed(5e-100), "0." + std::string(99, '0') + "5");
}

TEST(JXDecimalFromDouble, FindsShortestDigitsNextToPowersOfTwo) {
  // The nearest decimal of 16 digits is below 2^89, where doubles are closer together, and does not
  // convert back.
  EXPECT_EQ(printed(std::ldexp(1.0, 89)), "618970019642690200000000000");
  // The same applies below 2^-44.
  EXPECT_EQ(printed(std::ldexp(1.0, -44)), "0.00000000000005684341886080802");
}

TEST(JXDecimalFromDouble, ConvertsPositiveAndNegativeZeroToZero) {
  EXPECT_EQ(printed(0.0), "0");
  EXPECT_EQ(JXDecimal::fromDouble(-0.0), JXDecimal(0));
}

TEST(JXDecimalFromDouble, ReturnsNaNForInfinityNaNAndOutOfRangeValues) {
  EXPECT_TRUE(JXDecimal::fromDouble(std::numeric_limits<double>::infinity()).isNaN());
  EXPECT_TRUE(JXDecimal::fromDouble(-std::numeric_limits<double>::infinity()).isNaN());
  EXPECT_TRUE(JXDecimal::fromDouble(std::numeric_limits<double>::quiet_NaN()).isNaN());
  EXPECT_TRUE(JXDecimal::fromDouble(5e-324).isNaN());
  EXPECT_TRUE(JXDecimal::fromDouble(1.7976931348623157e308).isNaN());
  EXPECT_TRUE(JXDecimal::fromDouble(-1e200).isNaN());
}

TEST(JXDecimalFromDouble, RoundTripsWithTheFewestDigits) {
  std::mt19937_64 random(20240229);
  std::uniform_int_distribution<int> exponent(-90, 90);
  std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
  for (int i = 0; i < 2'000; ++i) {
    const double value = mantissa(random) * std::pow(10.0, exponent(random));
    const std::string text = printed(value);
    ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;

    std::string digits;
    for (const char c : text) {
      if (c >= '0' && c <= '9') digits += c;
    }
    digits.erase(0, digits.find_first_not_of('0'));
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.size() < 2) continue;
    char shorter[64];
    std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits.size()) - 2, value);
    ASSERT_NE(std::strtod(shorter, nullptr), value) << text << " " << shorter;
  }
}

// A minimal system may have no locales installed, so the test provides one: the file that the C
// library reads for LC_NUMERIC, with a decimal comma and dots between thousands.
std::string commaNumerics() {
  static constexpr unsigned char kBytes[] = {
      0x14, 0x11, 0x03, 0x20,                            // magic number of LC_NUMERIC
      6,    0,    0,    0,    32,  0,  0, 0, 34, 0,  0,  // six entries and their offsets
      0,    36,   0,    0,    0,   40, 0, 0, 0,  44, 0, 0, 0, 48, 0, 0, 0, ',', 0,  // decimal point
      '.',  0,                                // thousands separator
      3,    3,    0,    0,                    // groups of three
      ',',  0,    0,    0,    '.', 0,  0, 0,  // both as wide characters
      'U',  'T',  'F',  '-',  '8', 0,  0, 0};
  return {reinterpret_cast<const char*>(kBytes), sizeof kBytes};
}

class JXDecimalCommaLocale : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("comma/LC_NUMERIC", commaNumerics());
    environment_.set("LOCPATH", folder_.path());
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma"), nullptr);
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    ASSERT_STREQ(text, "1,5") << "the locale is not in effect, so the test would be meaningless";
  }
  void TearDown() override { std::setlocale(LC_NUMERIC, "C"); }

 private:
  test::TemporaryFolder folder_;
  test::ScopedEnvironment environment_;
};

TEST_F(JXDecimalCommaLocale, FromDoubleUsesAPoint) {
  EXPECT_EQ(printed(0.1), "0.1");
  EXPECT_EQ(printed(1234567.25), "1234567.25");
  EXPECT_EQ(printed(std::ldexp(1.0, 89)), "618970019642690200000000000");
}

TEST_F(JXDecimalCommaLocale, FromStringRequiresAPoint) {
  EXPECT_EQ(JXDecimal::fromString("1234.50").toString(), "1234.50");
  EXPECT_TRUE(JXDecimal::fromString("1234,50").isNaN());
}

TEST_F(JXDecimalCommaLocale, JsonIsReadAndWrittenWithAPoint) {
  const JXJsonReading reading = JXJsonReader::read(R"({"a":12.50,"b":1234567})");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(JXJsonWriter::write(reading.value.object(), JXJsonStyle::Compact).text,
            R"({"a":12.50,"b":1234567})");
}

}  // namespace
}  // namespace jx
