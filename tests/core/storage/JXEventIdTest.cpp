// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXEventId.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "jx/core/json/JXJsonObject.h"
#include "jx/core/json/JXJsonReader.h"

namespace jx {
namespace {

// The ID read from the tree of the whole body.
JXString idInTree(const std::string& body) {
  return JXJsonReader::read(body).value.object().get("context").object().get("event_id").string();
}

std::string nested(std::size_t depth) {
  return R"({"context":{"event_id":"e"},"deep":)" + std::string(depth, '[') +
         std::string(depth, ']') + "}";
}

TEST(EventId, ReturnsTheStringInTheContext) {
  EXPECT_EQ(JXString("e-1"), eventIdOf(R"({"context":{"event_id":"e-1"}})"));
  EXPECT_EQ(JXString("e-1"), eventIdOf(" {\"a\" : [1, {\"event_id\":\"no\"}] ,\n\t\"context\" : "
                                       "{ \"b\":{}, \"event_id\" : \"e-1\" , \"c\":null }\r\n} "));
  EXPECT_EQ(JXString("e-1"), eventIdOf("\xEF\xBB\xBF{\"context\":{\"event_id\":\"e-1\"}}"));
  EXPECT_EQ(JXString(""), eventIdOf(R"({"context":{"event_id":""}})"));
}

TEST(EventId, ReturnsNullWithoutAString) {
  for (const char* body :
       {"{}", "[]", "1", R"("event_id")", R"({"context":{}})", R"({"context":"event_id"})",
        R"({"event_id":"e"})", R"({"context":{"event_id":null}})", R"({"context":{"event_id":7}})",
        R"({"context":{"event_id":["e"]}})", R"({"context":{"event_id":{"event_id":"e"}}})",
        R"({"context":{"a":{"event_id":"e"}}})", R"({"context":[{"event_id":"e"}]})",
        R"({"context":["event_id","e"]})", R"({"a":{"context":{"event_id":"e"}}})",
        R"({"context":{},"other":{"event_id":"e"}})", R"([{"context":1},{"event_id":"e"}])",
        R"({"Context":{"event_id":"e"}})"}) {
    EXPECT_FALSE(eventIdOf(body).isPresent()) << body;
  }
}

TEST(EventId, UsesTheLastOfDuplicateKeys) {
  EXPECT_EQ(JXString("b"), eventIdOf(R"({"context":{"event_id":"a","event_id":"b"}})"));
  EXPECT_EQ(JXString("b"), eventIdOf(R"({"context":{"event_id":"a"},"context":{"event_id":"b"}})"));
  EXPECT_EQ(JXString(), eventIdOf(R"({"context":{"event_id":"a"},"context":{}})"));
  EXPECT_EQ(JXString(), eventIdOf(R"({"context":{"event_id":"a"},"context":"b"})"));
  EXPECT_EQ(JXString(), eventIdOf(R"({"context":{"event_id":"a"},"context":["b"]})"));
  EXPECT_EQ(JXString(), eventIdOf(R"({"context":{"event_id":"a","event_id":{}}})"));
}

TEST(EventId, ReadsEscapesInKeysAndValues) {
  EXPECT_EQ(JXString("a\"b\\c/\n"), eventIdOf(R"({"context":{"event_id":"a\"b\\c\/\n"}})"));
  EXPECT_EQ(JXString("\xF0\x9F\x93\xBA"), eventIdOf(R"({"context":{"event_id":"\uD83D\uDCFA"}})"));
  EXPECT_EQ(JXString("e"), eventIdOf(R"({"\u0063ontext":{"event\u005Fid":"e"}})"));
  EXPECT_EQ(JXString("e"), eventIdOf(R"({"a\\":"\\","b\"":"}\"{","context":{"event_id":"e"}})"));
}

TEST(EventId, ReturnsNullForInvalidJson) {
  for (const char* tail : {"",
                           ",",
                           "}}",
                           "} x",
                           "\"a\":1}",
                           ",}",
                           ",1}",
                           ",\"a\"}",
                           ",\"a\":}",
                           ",\"a\":01}",
                           ",\"a\":1.}",
                           ",\"a\":+1}",
                           ",\"a\":1e}",
                           ",\"a\":1e9999}",
                           ",\"a\":nul}",
                           ",\"a\":[1,]}",
                           ",\"a\":[}",
                           ",\"a\":[1}",
                           ",\"a\":{]}",
                           ",\"a\":\"\\x\"}",
                           ",\"a\":\"\\u12G4\"}",
                           ",\"a\":\"\\uD800\"}",
                           ",\"a\":\"\n\"}",
                           ",\"a\":\"\\",
                           ",\"a\":\"\xFF\"}",
                           ",\"a\":\xEF\xBB\xBF"
                           "1}"}) {
    const std::string body = std::string(R"({"context":{"event_id":"e"})") + tail;
    EXPECT_FALSE(eventIdOf(body).isPresent()) << body;
  }
  EXPECT_FALSE(eventIdOf("").isPresent());
  EXPECT_FALSE(eventIdOf("\"\\").isPresent());
}

TEST(EventId, AcceptsTheNestingDepthOfTheReader) {
  EXPECT_EQ(JXString("e"), eventIdOf(nested(JXJsonReader::kMaxDepth - 1)));
  EXPECT_FALSE(eventIdOf(nested(JXJsonReader::kMaxDepth)).isPresent());
}

// Generates values in which the two keys and escapes are frequent.
class Generator {
 public:
  std::string value(int depth) {
    // Objects directly in the body and strings in them, as in an event.
    const std::size_t common = depth == 1 ? 5 : 0;
    switch (below(3) == 0 ? below(depth > 3 ? 4 : 7) : depth < 3 ? common : below(4)) {
      case 0:
        return string();
      case 1:
        return pick({"0", "-1", "12.50", "1e3", "-0.1E-2", "123456789012345678901234567890"});
      case 2:
        return pick({"null", "true", "false", "{}", "[]", "[ ]", "{\n}"});
      case 3:
        return "\"id\"";
      case 4:
        return list('[', ']', [&] { return value(depth + 1); });
      default:
        return list('{', '}', [&] { return key() + blank() + ":" + blank() + value(depth + 1); });
    }
  }
  std::string body() {
    return blank() + list('{', '}', [&] { return key() + ":" + value(1); }) + blank();
  }
  // Replaces, removes or inserts bytes that matter to a parser, or cuts the text.
  std::string damaged(std::string text) {
    constexpr std::string_view kBytes = "{}[]\",:\\ue0-1.tn \n\x01\xC3\xBA";
    for (std::size_t i = below(3) + 1; i != 0; --i) {
      const std::size_t at = below(text.size() + 1);
      const char byte = kBytes[below(kBytes.size())];
      const std::size_t kind = below(4);
      if (kind == 0) text.insert(at, 1, byte);
      if (kind == 1) text.erase(at, 1);
      if (kind == 2 && at < text.size()) text[at] = byte;
      if (kind == 3 && below(4) == 0) text.resize(at);
    }
    return text;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }
  std::string pick(const std::vector<std::string>& choices) {
    return choices[below(choices.size())];
  }
  std::string blank() { return pick({"", "", "", " ", "\n", "\t \r"}); }
  std::string string() {
    return pick({R"("")", R"("a")", R"("\"\\\/")", R"("\u00e9\uD83D\uDCFA")", "\"\xC3\xA9\"",
                 R"("context")", R"("{[,:")"});
  }
  std::string key() {
    return pick({R"("context")", R"("context")", R"("event_id")", R"("event_id")",
                 R"("cont\u0065xt")", R"("event\u005fid")", R"("other")"});
  }
  template <class Make>
  std::string list(char first, char last, const Make& make) {
    std::string text(1, first);
    for (std::size_t i = below(5); i != 0; --i)
      text += blank() + make() + blank() + (i == 1 ? "" : ",");
    return text + last;
  }

  std::mt19937 random_{20'260'101};
};

TEST(EventId, EqualsTheIdInTheTreeForGeneratedAndDamagedBodies) {
  Generator generator;
  int found = 0;
  int foundInDamaged = 0;
  int invalid = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::string body = generator.body();
    ASSERT_TRUE(JXJsonReader::read(body).error.empty()) << body;
    ASSERT_EQ(idInTree(body), eventIdOf(body)) << body;
    found += eventIdOf(body).isPresent() ? 1 : 0;
    const std::string damaged = generator.damaged(body);
    ASSERT_EQ(idInTree(damaged), eventIdOf(damaged)) << damaged;
    foundInDamaged += eventIdOf(damaged).isPresent() ? 1 : 0;
    invalid += JXJsonReader::read(damaged).error.empty() ? 0 : 1;
  }
  // The comparison covers all three cases often enough.
  EXPECT_GT(found, 1'000);
  EXPECT_GT(foundInDamaged, 200);
  EXPECT_GT(invalid, 5'000);
}

}  // namespace
}  // namespace jx
