// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

JXString number(std::string_view text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  EXPECT_EQ(reading.error, "") << text;
  return reading.value.numberString();
}

void expectError(std::string_view text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  EXPECT_FALSE(reading.value.isPresent()) << testing::PrintToString(text.substr(0, 80));
  EXPECT_NE(reading.error, "") << testing::PrintToString(text.substr(0, 80));
  EXPECT_LE(reading.errorOffset, text.size());
}

TEST(JXJsonReader, ReadsEveryKindOfValue) {
  const JXJsonReading reading = JXJsonReader::read(
      " {\"s\":\"text\",\"n\":-1.50,\"t\":true,\"f\":false,\"z\":null,\r\n\t\"o\":{},\"a\":[1,[]]}"
      " ");
  ASSERT_EQ(reading.error, "");
  const JXJsonObject object = reading.value.object();
  EXPECT_EQ(object.size(), 7U);
  EXPECT_EQ(object.get("s").string(), JXString("text"));
  EXPECT_EQ(object.get("n").numberString(), JXString("-1.50"));
  EXPECT_TRUE(object.get("t").boolValue());
  EXPECT_EQ(object.get("f").kind(), Kind::Bool);
  EXPECT_EQ(object.get("z").kind(), Kind::Null);
  EXPECT_EQ(object.get("o").kind(), Kind::Object);
  EXPECT_EQ(object.get("a").array().size(), 2U);
}

TEST(JXJsonReader, ReadsEveryKindAtTheTopLevel) {
  EXPECT_EQ(JXJsonReader::read("\"text\"").value.string(), JXString("text"));
  EXPECT_EQ(JXJsonReader::read("null").value.kind(), Kind::Null);
  EXPECT_TRUE(JXJsonReader::read("true").value.boolValue());
  EXPECT_EQ(JXJsonReader::read("[]").value.kind(), Kind::Array);
}

TEST(JXJsonReader, KeepsEveryDigitOfNumbers) {
  EXPECT_EQ(number("123456789012345678901234567890"), JXString("123456789012345678901234567890"));
  EXPECT_EQ(number("-0.123456789012345678901234567890"),
            JXString("-0.123456789012345678901234567890"));
  EXPECT_EQ(number("12.50"), JXString("12.50"));
  EXPECT_EQ(number("0"), JXString("0"));
  EXPECT_EQ(number("-0"), JXString("-0"));
  EXPECT_EQ(number("0.0"), JXString("0.0"));
  EXPECT_EQ(number("9007199254740993"), JXString("9007199254740993"));
  EXPECT_EQ(number("18446744073709551616"), JXString("18446744073709551616"));
}

TEST(JXJsonReader, ExpandsExponents) {
  EXPECT_EQ(number("1E5"), JXString("100000"));
  EXPECT_EQ(number("1e+5"), JXString("100000"));
  EXPECT_EQ(number("1.25e1"), JXString("12.5"));
  EXPECT_EQ(number("1e-5"), JXString("0.00001"));
  EXPECT_EQ(number("1e400"), JXString("1" + std::string(400, '0')));
  EXPECT_EQ(number("-1e-400"), JXString("-0." + std::string(399, '0') + "1"));
  EXPECT_EQ(number("1e4000"), JXString("1" + std::string(4000, '0')));
}

TEST(JXJsonReader, RejectsANumberThatAnExponentMakesTooLong) {
  for (const char* text : {"1e5000", "1e-5000", "1e999999999", "[1e99999999999999999999]"}) {
    expectError(text);
  }
}

TEST(JXJsonReader, KeepsNumbersInObjectsAndArraysExact) {
  const JXJsonReading reading = JXJsonReader::read("{\"a\":[1e400,0.10],\"b\":1e-400}");
  ASSERT_EQ(reading.error, "");
  EXPECT_EQ(reading.value.object().get("a").array().at(0).numberString(),
            JXString("1" + std::string(400, '0')));
  EXPECT_EQ(reading.value.object().get("a").array().at(1).numberString(), JXString("0.10"));
}

TEST(JXJsonReader, KeepsTheLastValueOfADuplicateKey) {
  const JXJsonObject object = JXJsonReader::read(R"({"a":1,"b":2,"a":{"c":3}})").value.object();
  EXPECT_EQ(object.size(), 2U);
  EXPECT_EQ(object.entries()[0].key, JXString("a"));
  EXPECT_EQ(object.get("a").object().get("c").numberString(), JXString("3"));
}

TEST(JXJsonReader, DecodesEscapes) {
  EXPECT_EQ(JXJsonReader::read(R"("\"\\\/\b\f\n\r\t\u0041\u00e9\u20AC")").value.string(),
            JXString("\"\\/\b\f\n\r\tA\xC3\xA9\xE2\x82\xAC"));
  EXPECT_EQ(JXJsonReader::read(R"("\ud83d\udcfa")").value.string(), JXString("\xF0\x9F\x93\xBA"));
  EXPECT_EQ(JXJsonReader::read(R"("a\u0000b")").value.string(), JXString(std::string("a\0b", 3)));
  const JXJsonObject object = JXJsonReader::read(R"({"k\u0000":1})").value.object();
  EXPECT_EQ(object.get(std::string("k\0", 2)).numberString(), JXString("1"));
}

TEST(JXJsonReader, RejectsUnpairedSurrogateEscapes) {
  for (const char* text : {R"("\ud83d")", R"("\udcfa")", R"("\ud83dx")", R"("\ud83d\u0041")",
                           R"("\ud83d\ud83d")", R"(["ok","\uDFFF"])", R"({"\uDC00":1})"}) {
    expectError(text);
  }
}

TEST(JXJsonReader, RejectsInvalidUtf8) {
  for (const char* text : {"\"\x80\"", "\"\xC0\xAF\"", "\"\xE0\x80\xAF\"", "\"\xED\xA0\x80\"",
                           "\"\xF4\x90\x80\x80\"", "\"\xF5\x80\x80\x80\"", "\"\xC3\"",
                           "\"\xF0\x9F\x93\"", "\"\xFF\"", "{\"\xC3\":1}", "\"\xE2\x82"}) {
    expectError(text);
  }
  EXPECT_EQ(JXJsonReader::read("\"\xF4\x8F\xBF\xBF\"").value.string(),
            JXString("\xF4\x8F\xBF\xBF"));
}

TEST(JXJsonReader, RejectsInvalidJson) {
  for (const char* text :
       {"",          " ",        "{",         "}",    "[",          "]",       "{]",
        "[}",        "tru",      "nul",       "True", "abc",        "{\"a\"}", "{\"a\":}",
        "{a:1}",     "{'a':1}",  "[1,]",      "[,1]", "{\"a\":1,}", "[1 2]",   "\"open",
        "\"a\nb\"",  "\"\\x\"",  "\"\\u12\"", "01",   "-01",        "1.",      ".5",
        "+1",        "-",        "1e",        "1e+",  "0x10",       "NaN",     "Infinity",
        "-Infinity", "// c\n1",  "/* c */ 1", "1,2",  "{} {}",      "[] x",    "\"a\"b",
        "null null", "\"\x01\"", "\xEF\xBB",  "\\"}) {
    expectError(text);
  }
}

TEST(JXJsonReader, RejectsUnescapedNul) {
  expectError(std::string_view("\0", 1));
  expectError(std::string_view("{}\0", 3));
  expectError(std::string_view("{}\0{}", 5));
  expectError(std::string_view("1\0", 2));
  expectError(std::string_view("[1,\0002]", 6));
  expectError(std::string_view("\"a\0b\"", 5));
}

TEST(JXJsonReader, ReadsUpToAThousandLevels) {
  const auto nested = [](std::size_t levels) {
    return std::string(levels, '[') + std::string(levels, ']');
  };
  EXPECT_EQ(JXJsonReader::read(nested(1'000)).error, "");
  expectError(nested(1'001));
  expectError(nested(1'000'000));
  expectError(std::string(1'000'000, '['));
  std::string objects;
  for (int i = 0; i < 1'001; ++i)
    objects += "{\"a\":";
  expectError(objects + "1" + std::string(1'001, '}'));
}

TEST(JXJsonReader, ReportsTheErrorOffset) {
  EXPECT_EQ(JXJsonReader::read("{\"a\":1,x}").errorOffset, 7U);
  EXPECT_EQ(JXJsonReader::read("[1,2").errorOffset, 4U);
  EXPECT_EQ(JXJsonReader::read("{} x").errorOffset, 3U);
  EXPECT_EQ(JXJsonReader::read(std::string_view("{}\0{}", 5)).errorOffset, 2U);
  EXPECT_EQ(JXJsonReader::read("{}").errorOffset, 0U);
}

TEST(JXJsonReader, ReadsOnlyTheGivenRange) {
  const std::string text = "{\"a\":12345}";
  EXPECT_EQ(number(std::string_view(text).substr(5, 3)), JXString("123"));
  EXPECT_EQ(JXJsonReader::read(std::string_view()).value.kind(), Kind::Absent);
}

TEST(JXJsonReader, ReadsOrRejectsAnyBytes) {
  const std::string seed = R"({"a":[1.5e3,-0,"\u00e9\ud83d\udcfa"],"b":{"c":null,"d":true}})";
  for (std::size_t at = 0; at < seed.size(); ++at) {
    for (int byte = 0; byte < 256; byte += at % 5 == 0 ? 1 : 7) {
      std::string text = seed;
      text[at] = static_cast<char>(byte);
      const JXJsonReading reading = JXJsonReader::read(text);
      ASSERT_EQ(reading.value.isPresent(), reading.error.empty()) << testing::PrintToString(text);
      if (reading.value.isPresent()) {
        ASSERT_TRUE(isUtf8(text)) << testing::PrintToString(text);
      }
    }
    expectError(seed.substr(0, at));
  }
}

}  // namespace
}  // namespace jx
