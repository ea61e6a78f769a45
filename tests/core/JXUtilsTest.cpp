// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUtils.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace jx {
namespace {

std::string json(const JXJsonObject& object) {
  return JXUtils::jsonDictionaryToString(object).toStdString();
}

TEST(JXUtils, NullValuesLeaveTheObjectUnchanged) {
  JXJsonObject dict;
  for (const char* key : {"s", "f", "t", "a", "j"})
    dict.set(key, "before");
  JXUtils::setString_forKey_onDict(nullptr, "s", dict);
  JXUtils::setFloat_forKey_onDict(std::nullopt, "f", dict);
  JXUtils::setFloatFromString_forKey_onDict(nullptr, "t", dict);
  JXUtils::setArray_forKey_onDict(nullptr, "a", dict);
  JXUtils::setJson_forKey_onDict(nullptr, "j", dict);
  JXUtils::setString_forKey_onDict(nullptr, "new", dict);
  EXPECT_EQ(json(dict), R"({"s":"before","f":"before","t":"before","a":"before","j":"before"})");
}

TEST(JXUtils, WritesEmptyZeroAndFalse) {
  JXJsonObject dict;
  JXUtils::setString_forKey_onDict("", "s", dict);
  JXUtils::setFloat_forKey_onDict(JXDecimal(0), "f", dict);
  JXUtils::setFloatFromString_forKey_onDict("0", "t", dict);
  JXUtils::setBool_forKey_onDict(false, "b", dict);
  JXUtils::setArray_forKey_onDict(JXJsonArray(), "a", dict);
  JXUtils::setJson_forKey_onDict(JXJsonObject(), "j", dict);
  EXPECT_EQ(json(dict), R"({"s":"","f":0,"t":0,"b":false,"a":[],"j":{}})");
}

TEST(JXUtils, ReplacesAValueAndKeepsTheKeyPosition) {
  JXJsonObject dict;
  dict.set("a", 1);
  dict.set("b", 2);
  JXUtils::setBool_forKey_onDict(true, "a", dict);
  EXPECT_EQ(json(dict), R"({"a":true,"b":2})");
}

TEST(JXUtils, IgnoresANullDict) {
  JXJsonObject none(nullptr);
  JXUtils::setString_forKey_onDict("x", "k", none);
  JXUtils::setFloat_forKey_onDict(JXDecimal(1), "k", none);
  JXUtils::setFloatFromString_forKey_onDict("1", "k", none);
  JXUtils::setBool_forKey_onDict(true, "k", none);
  JXUtils::setArray_forKey_onDict(JXJsonArray(), "k", none);
  JXUtils::setJson_forKey_onDict(JXJsonObject(), "k", none);
  EXPECT_FALSE(none.isPresent());
}

TEST(JXUtils, WritesNumbersExactly) {
  JXJsonObject dict;
  JXUtils::setFloat_forKey_onDict(JXDecimal::fromString("12.50"), "a", dict);
  JXUtils::setFloat_forKey_onDict(JXDecimal(-3), "b", dict);
  JXUtils::setFloat_forKey_onDict(JXDecimal::fromString("1e20"), "c", dict);
  JXUtils::setFloat_forKey_onDict(JXDecimal::fromDouble(0.1), "d", dict);
  EXPECT_EQ(json(dict), R"({"a":12.50,"b":-3,"c":100000000000000000000,"d":0.1})");
}

TEST(JXUtils, OmitsNaN) {
  JXJsonObject dict;
  JXUtils::setFloat_forKey_onDict(JXDecimal::nan(), "a", dict);
  JXUtils::setFloat_forKey_onDict(JXDecimal::fromString("abc"), "b", dict);
  EXPECT_EQ(json(dict), "{}");
}

TEST(JXUtils, WritesNumbersInStringsExactly) {
  JXJsonObject dict;
  JXUtils::setFloatFromString_forKey_onDict("1700000000123", "time", dict);
  JXUtils::setFloatFromString_forKey_onDict("12.50", "scale", dict);
  JXUtils::setFloatFromString_forKey_onDict("+0012", "plus", dict);
  JXUtils::setFloatFromString_forKey_onDict("-7.0", "minus", dict);
  JXUtils::setFloatFromString_forKey_onDict("1.5e3", "exponent", dict);
  JXUtils::setFloatFromString_forKey_onDict(".5", "point", dict);
  JXUtils::setFloatFromString_forKey_onDict("1234567890123456789012345678901234567890.12345",
                                            "long", dict);
  EXPECT_EQ(json(dict),
            R"({"time":1700000000123,"scale":12.50,"plus":12,"minus":-7.0,"exponent":1500,)"
            R"("point":0.5,"long":1234567890123456789012345678901234567890.12345})");
}

TEST(JXUtils, OmitsStringsThatAreNotNumbers) {
  JXJsonObject dict;
  for (const char* string : {"", " ", "abc", "-", "1,5", "12 apples", "NaN", "0x10"}) {
    JXUtils::setFloatFromString_forKey_onDict(string, "k", dict);
  }
  EXPECT_EQ(json(dict), "{}");
}

TEST(JXUtils, SetJsonAndSetArrayStoreByReference) {
  JXJsonObject dict;
  JXJsonObject context;
  JXJsonArray items;
  JXUtils::setJson_forKey_onDict(context, "context", dict);
  JXUtils::setArray_forKey_onDict(items, "items", dict);
  context.set("event_id", "id");
  items.append(1);
  EXPECT_TRUE(dict.get("context").object().isSameAs(context));
  EXPECT_EQ(json(dict), R"({"context":{"event_id":"id"},"items":[1]})");
}

TEST(JXUtils, NumberFromNSStringReturnsTheLeadingInteger) {
  EXPECT_EQ(JXUtils::numberFromNSString("42"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString("-42"), -42);
  EXPECT_EQ(JXUtils::numberFromNSString("+42"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString("0042"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString("42.9"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString("42 apples"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString(" 42"), 42);
  EXPECT_EQ(JXUtils::numberFromNSString("12,345"), 12);
  EXPECT_EQ(JXUtils::numberFromNSString("1e3"), 1);
  EXPECT_EQ(JXUtils::numberFromNSString(std::string("7\0008", 3)), 7);
}

TEST(JXUtils, NumberFromNSStringReturnsZeroWithoutANumber) {
  for (const char* string : {"", " ", "abc", "-", "+", "--1", "+-1", "- 1", ".5", "x42"}) {
    EXPECT_EQ(JXUtils::numberFromNSString(string), 0) << string;
  }
  EXPECT_EQ(JXUtils::numberFromNSString(nullptr), 0);
}

TEST(JXUtils, NumberFromNSStringClampsToItsRange) {
  EXPECT_EQ(JXUtils::numberFromNSString("9223372036854775807"), INT64_MAX);
  EXPECT_EQ(JXUtils::numberFromNSString("9223372036854775808"), INT64_MAX);
  EXPECT_EQ(JXUtils::numberFromNSString("-9223372036854775808"), INT64_MIN);
  EXPECT_EQ(JXUtils::numberFromNSString("-9223372036854775809"), INT64_MIN);
  EXPECT_EQ(JXUtils::numberFromNSString("99999999999999999999999999"), INT64_MAX);
  EXPECT_EQ(JXUtils::numberFromNSString("-99999999999999999999999999"), INT64_MIN);
  EXPECT_EQ(JXUtils::numberFromNSString("-9223372036854775807"), -INT64_MAX);
}

TEST(JXUtils, UnsignedFromDigitsReturnsDigitsModuloTwoToThe64) {
  EXPECT_EQ(JXUtils::unsignedFromDigits("1700000000123"), 1'700'000'000'123U);
  EXPECT_EQ(JXUtils::unsignedFromDigits("007"), 7U);
  EXPECT_EQ(JXUtils::unsignedFromDigits("18446744073709551615"), UINT64_MAX);
  EXPECT_EQ(JXUtils::unsignedFromDigits("18446744073709551616"), 0U);
  EXPECT_EQ(JXUtils::unsignedFromDigits("18446744073709551617"), 1U);
  EXPECT_EQ(JXUtils::unsignedFromDigits("184467440737095516160000000005"), 5U);
}

TEST(JXUtils, UnsignedFromDigitsReturnsZeroForAnyOtherString) {
  const JXString strings[] = {nullptr, "",    "-1", "+1",   " 1",
                              "1 ",    "1.0", "1a", "0x10", std::string("1\0", 2)};
  for (const JXString& string : strings)
    EXPECT_EQ(JXUtils::unsignedFromDigits(string), 0U) << string;
}

TEST(JXUtils, JsonDictionaryToStringIsCompactAndKeepsNull) {
  JXJsonObject object;
  object.set("a", JXJsonValue::null());
  object.set("b", "x y");
  EXPECT_EQ(JXUtils::jsonDictionaryToString(object), JXString(R"({"a":null,"b":"x y"})"));
  EXPECT_FALSE(JXUtils::jsonDictionaryToString(nullptr).isPresent());
}

}  // namespace
}  // namespace jx
