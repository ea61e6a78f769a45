// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonValue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

TEST(JXJsonValue, DistinguishesAbsentFromNull) {
  EXPECT_EQ(JXJsonValue().kind(), Kind::Absent);
  EXPECT_FALSE(JXJsonValue().isPresent());
  EXPECT_EQ(JXJsonValue(nullptr).kind(), Kind::Absent);
  EXPECT_EQ(JXJsonValue::null().kind(), Kind::Null);
  EXPECT_TRUE(JXJsonValue::null().isPresent());
}

TEST(JXJsonValue, IsAbsentForNullInputsAndNaN) {
  const char* none = nullptr;
  EXPECT_FALSE(JXJsonValue(none).isPresent());
  EXPECT_FALSE(JXJsonValue(JXString()).isPresent());
  EXPECT_FALSE(JXJsonValue(JXJsonObject(nullptr)).isPresent());
  EXPECT_FALSE(JXJsonValue(JXJsonArray(nullptr)).isPresent());
  EXPECT_FALSE(JXJsonValue(JXDecimal::nan()).isPresent());
}

TEST(JXJsonValue, EmptyZeroAndFalseArePresent) {
  EXPECT_EQ(JXJsonValue("").kind(), Kind::String);
  EXPECT_EQ(JXJsonValue("").string(), JXString(""));
  EXPECT_EQ(JXJsonValue(0).numberString(), JXString("0"));
  EXPECT_EQ(JXJsonValue(false).kind(), Kind::Bool);
  EXPECT_EQ(JXJsonValue(JXJsonObject()).kind(), Kind::Object);
  EXPECT_EQ(JXJsonValue(JXJsonArray()).kind(), Kind::Array);
}

TEST(JXJsonValue, AcceptsEveryStringType) {
  EXPECT_EQ(JXJsonValue("text").string(), JXString("text"));
  EXPECT_EQ(JXJsonValue(std::string("text")).string(), JXString("text"));
  EXPECT_EQ(JXJsonValue(std::string_view("text")).string(), JXString("text"));
  EXPECT_EQ(JXJsonValue(JXString("text")).string(), JXString("text"));
}

TEST(JXJsonValue, DoesNotConvertPointersToBool) {
  EXPECT_FALSE((std::is_constructible_v<JXJsonValue, int*>));
  EXPECT_FALSE((std::is_constructible_v<JXJsonValue, const void*>));
  EXPECT_FALSE((std::is_constructible_v<JXJsonValue, double>));
  EXPECT_EQ(JXJsonValue("false").kind(), Kind::String);
}

TEST(JXJsonValue, KeepsEveryDigitOfIntegers) {
  EXPECT_EQ(JXJsonValue(INT64_MIN).numberString(), JXString("-9223372036854775808"));
  EXPECT_EQ(JXJsonValue(UINT64_MAX).numberString(), JXString("18446744073709551615"));
  EXPECT_EQ(JXJsonValue(JXDecimal::fromString("12.50")).numberString(), JXString("12.50"));
}

TEST(JXJsonValue, NumberFromStringKeepsEveryDigit) {
  const char* digits = "123456789012345678901234567890123456789012345.67890";
  EXPECT_EQ(JXJsonValue::numberFromString(digits).numberString(), JXString(digits));
  EXPECT_EQ(JXJsonValue::numberFromString("12.50").numberString(), JXString("12.50"));
  EXPECT_EQ(JXJsonValue::numberFromString("+007").numberString(), JXString("7"));
  EXPECT_EQ(JXJsonValue::numberFromString("-007.0").numberString(), JXString("-7.0"));
  EXPECT_EQ(JXJsonValue::numberFromString(".5").numberString(), JXString("0.5"));
  EXPECT_EQ(JXJsonValue::numberFromString("5.").numberString(), JXString("5"));
  EXPECT_EQ(JXJsonValue::numberFromString("-0").numberString(), JXString("-0"));
  EXPECT_EQ(JXJsonValue::numberFromString("1.50e1").numberString(), JXString("15.0"));
  EXPECT_EQ(JXJsonValue::numberFromString("1e-3").numberString(), JXString("0.001"));
  EXPECT_EQ(JXJsonValue::numberFromString("00e3").numberString(), JXString("0"));
}

TEST(JXJsonValue, NumberFromStringIsAbsentForInvalidInput) {
  const JXString texts[] = {
      nullptr, "", "12a", "1,5", " 1", "1 ", "NaN", "-", std::string("1\0", 2)};
  for (const JXString& text : texts)
    EXPECT_FALSE(JXJsonValue::numberFromString(text).isPresent());
}

TEST(JXJsonValue, LimitsTheLengthOfAnExpandedExponent) {
  EXPECT_TRUE(JXJsonValue::numberFromString("1e4000").isPresent());
  EXPECT_FALSE(JXJsonValue::numberFromString("1e5000").isPresent());
  EXPECT_FALSE(JXJsonValue::numberFromString("1e-5000").isPresent());
  EXPECT_FALSE(JXJsonValue::numberFromString("1e999999999999").isPresent());
}

TEST(JXJsonValue, ReturnsNoValueForAnotherKind) {
  const JXJsonValue text("12");
  EXPECT_FALSE(text.boolValue());
  EXPECT_FALSE(text.numberString().isPresent());
  EXPECT_TRUE(text.decimal().isNaN());
  EXPECT_FALSE(text.object().isPresent());
  EXPECT_FALSE(text.array().isPresent());
  EXPECT_FALSE(JXJsonValue(12).string().isPresent());
  EXPECT_FALSE(JXJsonValue(1).boolValue());
  EXPECT_FALSE(JXJsonValue().string().isPresent());
  EXPECT_FALSE(JXJsonValue::null().object().isPresent());
}

TEST(JXJsonValue, ReturnsTheOriginalValue) {
  EXPECT_TRUE(JXJsonValue(true).boolValue());
  EXPECT_EQ(JXJsonValue(JXDecimal::fromString("-3.10")).decimal(), JXDecimal::fromString("-3.1"));
  const JXJsonObject object;
  EXPECT_TRUE(JXJsonValue(object).object().isSameAs(object));
  const JXJsonArray array;
  EXPECT_TRUE(JXJsonValue(array).array().isSameAs(array));
}

}  // namespace
}  // namespace jx
