// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "jx/core/json/JXJsonReader.h"

namespace jx {
namespace {

// Compares large texts and prints only their start.
testing::AssertionResult isText(const JXJsonText& json, const std::string& expected) {
  if (json.text == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << json.text.size() << " bytes: " << json.text.substr(0, 80);
}

std::string compact(const JXJsonObject& object) {
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_EQ(json.leftOut, 0U);
  return json.text;
}

std::string compactText(const JXString& text) {
  JXJsonObject object;
  object.set("t", text);
  return compact(object);
}

// Alternating objects and arrays, `levels` deep including the outermost object.
JXJsonObject nested(std::size_t levels) {
  JXJsonValue inner("core");
  for (std::size_t level = levels; level > 1; --level) {
    if (level % 2 == 0) {
      JXJsonArray array;
      array.append(std::move(inner));
      inner = array;
    } else {
      JXJsonObject object;
      object.set("k", std::move(inner));
      inner = object;
    }
  }
  JXJsonObject outermost;
  outermost.set("k", std::move(inner));
  return outermost;
}

JXJsonObject sample() {
  JXJsonObject product;
  product.set("name", "LANTERN");
  product.set("price", JXDecimal::fromString("3.390"));
  JXJsonArray colours;
  colours.append("red");
  colours.append(JXJsonValue::null());
  JXJsonObject object;
  object.set("id", "536365");
  object.set("new", false);
  object.set("count", 6);
  object.set("product", product);
  object.set("colours", colours);
  object.set("none", JXJsonObject());
  object.set("empty", JXJsonArray());
  return object;
}

TEST(JXJsonWriter, WritesCompactTextWithoutWhitespace) {
  EXPECT_EQ(compact(sample()),
            R"({"id":"536365","new":false,"count":6,"product":{"name":"LANTERN","price":3.390},)"
            R"("colours":["red",null],"none":{},"empty":[]})");
}

TEST(JXJsonWriter, WritesPrettyTextWithALinePerEntryAndTwoSpacesPerLevel) {
  EXPECT_EQ(JXJsonWriter::write(sample(), JXJsonStyle::Pretty).text,
            "{\n"
            "  \"id\": \"536365\",\n"
            "  \"new\": false,\n"
            "  \"count\": 6,\n"
            "  \"product\": {\n"
            "    \"name\": \"LANTERN\",\n"
            "    \"price\": 3.390\n"
            "  },\n"
            "  \"colours\": [\n"
            "    \"red\",\n"
            "    null\n"
            "  ],\n"
            "  \"none\": {},\n"
            "  \"empty\": []\n"
            "}");
}

TEST(JXJsonWriter, WritesEmptyBracesForAnEmptyAndANullObject) {
  EXPECT_EQ(compact(JXJsonObject()), "{}");
  EXPECT_EQ(compact(JXJsonObject(nullptr)), "{}");
  EXPECT_EQ(JXJsonWriter::write(nullptr, JXJsonStyle::Pretty).text, "{}");
}

TEST(JXJsonWriter, EscapesControlCharactersQuotesAndBackslashes) {
  std::string controls;
  for (char c = 1; c < 0x20; ++c)
    controls += c;
  EXPECT_EQ(compactText(controls),
            R"({"t":"\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000B\f\r\u000E\u000F)"
            R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019\u001A\u001B\u001C)"
            R"(\u001D\u001E\u001F"})");
  EXPECT_EQ(compactText("say \"hi\" \\ done"), R"({"t":"say \"hi\" \\ done"})");
  EXPECT_EQ(compactText("\x7F/<>&'"), "{\"t\":\"\x7F/<>&'\"}");
}

TEST(JXJsonWriter, WritesAnEmbeddedNul) {
  EXPECT_EQ(compactText(std::string("a\0b", 3)), R"({"t":"a\u0000b"})");
  JXJsonObject object;
  object.set(std::string("k\0", 2), 1);
  EXPECT_EQ(compact(object), R"({"k\u0000":1})");
}

TEST(JXJsonWriter, DoesNotEscapeNonAsciiCharacters) {
  EXPECT_EQ(compactText("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x93\xBA \xE2\x80\xA8"),
            "{\"t\":\"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x93\xBA \xE2\x80\xA8\"}");
}

TEST(JXJsonWriter, EscapesKeysLikeStrings) {
  JXJsonObject object;
  object.set("a\"b\n", 1);
  object.set("", 2);
  object.set("bad\xFF", 3);
  EXPECT_EQ(compact(object), "{\"a\\\"b\\n\":1,\"\":2,\"bad\xEF\xBF\xBD\":3}");
}

TEST(JXJsonWriter, ReplacesInvalidUtf8) {
  EXPECT_EQ(compactText("a\x80z"), "{\"t\":\"a\xEF\xBF\xBDz\"}");              // continuation
  EXPECT_EQ(compactText("\xC0\xAF"), "{\"t\":\"\xEF\xBF\xBD\xEF\xBF\xBD\"}");  // overlong
  EXPECT_EQ(compactText("\xED\xA0\x80"),
            "{\"t\":\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"}");       // surrogate
  EXPECT_EQ(compactText("\xF0\x9F\x93"), "{\"t\":\"\xEF\xBF\xBD\"}");  // truncated
  EXPECT_EQ(compactText("\xF4\x90\x80\x80"),
            "{\"t\":\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"}");  // too high
}

TEST(JXJsonWriter, WritesNumbersExactly) {
  JXJsonObject object;
  object.set("a", JXJsonValue::numberFromString("12.50"));
  object.set("b", JXJsonValue::numberFromString("123456789012345678901234567890.10"));
  object.set("c", JXDecimal::fromString("1e20"));
  object.set("d", JXDecimal::fromString("-0.000001"));
  EXPECT_EQ(compact(object),
            R"({"a":12.50,"b":123456789012345678901234567890.10,"c":100000000000000000000,)"
            R"("d":-0.000001})");
}

TEST(JXJsonWriter, WritesAStringOfOneMebibyte) {
  const std::string text(1024 * 1024, 'x');
  EXPECT_TRUE(compactText(text) == "{\"t\":\"" + text + "\"}");
}

TEST(JXJsonWriter, WritesTwoHundredLevels) {
  const JXJsonText json = JXJsonWriter::write(nested(200), JXJsonStyle::Compact);
  EXPECT_EQ(json.leftOut, 0U);
  std::string opening;
  std::string closing;
  for (int pair = 0; pair < 100; ++pair) {
    opening += "{\"k\":[";
    closing += "]}";
  }
  EXPECT_EQ(json.text, opening + "\"core\"" + closing);
}

TEST(JXJsonWriter, OmitsAndCountsValuesNestedTooDeeply) {
  const JXJsonText deepest = JXJsonWriter::write(nested(512), JXJsonStyle::Compact);
  EXPECT_EQ(deepest.leftOut, 0U);
  EXPECT_NE(deepest.text.find("core"), std::string::npos);

  const JXJsonText tooDeep = JXJsonWriter::write(nested(513), JXJsonStyle::Compact);
  EXPECT_EQ(tooDeep.leftOut, 1U);
  EXPECT_EQ(tooDeep.text.find("core"), std::string::npos);
  EXPECT_TRUE(JXJsonReader::read(tooDeep.text).value.isPresent());

  const JXJsonText endless = JXJsonWriter::write(nested(20'000), JXJsonStyle::Pretty);
  EXPECT_EQ(endless.leftOut, 1U);
  EXPECT_TRUE(JXJsonReader::read(endless.text).value.isPresent());
}

TEST(JXJsonWriter, OmitsAndCountsCircularReferences) {
  JXJsonObject object;
  JXJsonArray array;
  JXJsonObject inner;
  object.set("before", 1);
  object.set("self", object);
  object.set("list", array);
  array.append(2);
  array.append(inner);
  inner.set("up", array);
  inner.set("top", object);
  inner.set("after", 3);
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_EQ(json.text, R"({"before":1,"list":[2,{"after":3}]})");
  EXPECT_EQ(json.leftOut, 3U);
  // Breaks the circular references, which would otherwise leak the objects.
  inner.clear();
  object.clear();
}

TEST(JXJsonWriter, WritesAnObjectThatOccursTwice) {
  JXJsonObject shared;
  shared.set("a", 1);
  JXJsonObject object;
  object.set("x", shared);
  object.set("y", shared);
  EXPECT_EQ(compact(object), R"({"x":{"a":1},"y":{"a":1}})");
}

TEST(JXJsonWriter, OmitsAStringThatIsTooLargeAndWritesTheRest) {
  JXJsonObject object;
  object.set("before", 1);
  object.set("large", std::string(JXJsonWriter::kMaxBytes + 1, 'x'));
  object.set("after", 2);
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_TRUE(isText(json, R"({"before":1,"after":2})"));
  EXPECT_EQ(json.leftOut, 1U);
}

TEST(JXJsonWriter, CountsTheEscapedLengthOfAString) {
  // Each of these bytes is written as six bytes.
  JXJsonObject object;
  object.set("controls", std::string(JXJsonWriter::kMaxBytes / 6 + 1, '\x01'));
  object.set("after", 2);
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_TRUE(isText(json, R"({"after":2})"));
  EXPECT_EQ(json.leftOut, 1U);

  // Each of these bytes is written as three bytes.
  object.set("controls", std::string(JXJsonWriter::kMaxBytes / 3 + 1, '\xFF'));
  EXPECT_TRUE(isText(JXJsonWriter::write(object, JXJsonStyle::Compact), R"({"after":2})"));
}

TEST(JXJsonWriter, CountsTheLengthOfAKey) {
  JXJsonObject object;
  object.set(std::string(JXJsonWriter::kMaxBytes + 1, 'k'), 1);
  object.set("after", 2);
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_TRUE(isText(json, R"({"after":2})"));
  EXPECT_EQ(json.leftOut, 1U);
}

TEST(JXJsonWriter, WritesTextUpToExactlyTheSizeLimit) {
  const std::string frame = R"({"t":""})";
  JXJsonObject object;
  object.set("t", std::string(JXJsonWriter::kMaxBytes - frame.size(), 'x'));
  const JXJsonText json = JXJsonWriter::write(object, JXJsonStyle::Compact);
  EXPECT_EQ(json.leftOut, 0U);
  EXPECT_EQ(json.text.size(), JXJsonWriter::kMaxBytes);

  object.set("t", std::string(JXJsonWriter::kMaxBytes - frame.size() + 1, 'x'));
  EXPECT_TRUE(isText(JXJsonWriter::write(object, JXJsonStyle::Compact), "{}"));
}

// A few shared objects that would expand to 2^100 values.
JXJsonObject expanding() {
  JXJsonObject object;
  object.set("leaf", std::string(64 * 1024, 'x'));
  for (int level = 0; level < 100; ++level) {
    JXJsonObject outer;
    outer.set("left", object);
    outer.set("right", object);
    object = outer;
  }
  return object;
}

TEST(JXJsonWriter, LimitsASmallValueThatExpandsExponentially) {
  for (const JXJsonStyle style : {JXJsonStyle::Compact, JXJsonStyle::Pretty}) {
    const JXJsonText json = JXJsonWriter::write(expanding(), style);
    EXPECT_LE(json.text.size(), JXJsonWriter::kMaxBytes);
    EXPECT_GT(json.leftOut, 0U);
    EXPECT_TRUE(JXJsonReader::read(json.text).value.isPresent());
  }
}

// The writer copies sixteen, eight, four or one byte at a time.
TEST(JXJsonWriter, EscapesAByteAtEachPositionOfStringsAndKeysOfEachLength) {
  for (std::size_t length = 1; length <= 36; ++length) {
    for (std::size_t position = 0; position < length; ++position) {
      for (const auto& [byte, escaped] : {std::pair<char, std::string>{'"', "\\\""},
                                          {'\\', "\\\\"},
                                          {'\n', "\\n"},
                                          {'\x1f', "\\u001F"},
                                          {'\x7f', "\x7f"},
                                          {'~', "~"},
                                          {' ', " "},
                                          {'!', "!"}}) {
        std::string string(length, 'k');
        string[position] = byte;
        const std::string expected =
            std::string(position, 'k') + escaped + std::string(length - position - 1, 'k');
        JXJsonObject object;
        object.set(string, string);
        ASSERT_EQ(JXJsonWriter::write(object, JXJsonStyle::Compact).text,
                  "{\"" + expected + "\":\"" + expected + "\"}");
      }
    }
  }
}

TEST(JXJsonWriter, KeepsCharactersOfSeveralBytesAtEachPosition) {
  for (std::size_t length = 0; length <= 36; ++length) {
    const std::string string = std::string(length, 'k') + "\u00e9" + std::string(36 - length, 'k');
    JXJsonObject object;
    object.set("a", string);
    ASSERT_EQ(JXJsonWriter::write(object, JXJsonStyle::Compact).text,
              R"({"a":")" + string + R"("})");
  }
}

}  // namespace
}  // namespace jx
