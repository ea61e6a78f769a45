// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/JsonOut.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(JsonOut, SeparatesSiblingsWithCommas) {
  JsonOut out;
  out.beginObject().member("a", std::int64_t{-1}).key("b").beginArray();
  out.value("x").value(true).beginObject().endObject().beginArray().endArray().endArray();
  out.member("c", std::optional<std::string>()).endObject();
  EXPECT_EQ(out.text(), R"({"a":-1,"b":["x",true,{},[]],"c":null})");
}

TEST(JsonOut, EscapesQuotesBackslashesAndControlCharacters) {
  JsonOut out;
  out.value(std::string("\"\\/\n\t\r\b\f\0\x1F\x7F\xC3\xA4", 13));
  EXPECT_EQ(out.text(), "\"\\\"\\\\/\\n\\t\\r\\b\\f\\u0000\\u001f\x7F\xC3\xA4\"");
}

TEST(JsonOut, ReplacesBytesThatAreNotUtf8) {
  EXPECT_EQ(JsonOut().value("a\xFF").text(), "\"a\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace jx
