// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXUtf8.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace jx {
namespace {

#define REPLACED "\xEF\xBF\xBD"

TEST(JXUtf8, AcceptsEveryWellFormedSequence) {
  const std::string texts[] = {"",
                               "plain",
                               std::string("a\0b", 3),
                               "\x7F",
                               "\xC2\x80",
                               "\xDF\xBF",
                               "\xE0\xA0\x80",
                               "\xED\x9F\xBF",
                               "\xEE\x80\x80",
                               "\xEF\xBF\xBF",
                               "\xF0\x90\x80\x80",
                               "\xF4\x8F\xBF\xBF",
                               "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x93\xBA"};
  for (const std::string& text : texts) {
    EXPECT_TRUE(isUtf8(text)) << text;
    EXPECT_EQ(withReplacementCharacters(text), text);
  }
}

TEST(JXUtf8, ReplacesEachMaximalInvalidSubpart) {
  const std::pair<std::string, std::string> cases[] = {
      // Stray continuation bytes, each replaced separately.
      {"\x80", REPLACED},
      {"a\xBFz", "a" REPLACED "z"},
      {"\x80\x80\x80", REPLACED REPLACED REPLACED},
      // Bytes that begin no sequence.
      {"\xC0\x80", REPLACED REPLACED},
      {"\xC1\xBF", REPLACED REPLACED},
      {"\xF5\x80\x80\x80", REPLACED REPLACED REPLACED REPLACED},
      {"\xFE\xFF", REPLACED REPLACED},
      // Overlong forms of three and four bytes: the second byte is invalid after the first.
      {"\xE0\x80\xAF", REPLACED REPLACED REPLACED},
      {"\xE0\x9F\xBF", REPLACED REPLACED REPLACED},
      {"\xF0\x80\x80\xAF", REPLACED REPLACED REPLACED REPLACED},
      {"\xF0\x8F\xBF\xBF", REPLACED REPLACED REPLACED REPLACED},
      // Surrogates.
      {"\xED\xA0\x80", REPLACED REPLACED REPLACED},
      {"\xED\xBF\xBF", REPLACED REPLACED REPLACED},
      // Above U+10FFFF.
      {"\xF4\x90\x80\x80", REPLACED REPLACED REPLACED REPLACED},
      // Truncated: the bytes of the sequence are one subpart.
      {"\xC3", REPLACED},
      {"\xE2\x82", REPLACED},
      {"\xF0\x9F\x93", REPLACED},
      {"\xE2\x82z", REPLACED "z"},
      {"\xF0\x9F\x93z", REPLACED "z"},
      {"\xF0\x9Fz", REPLACED "z"},
      {"\xE2\xE2\x82\xAC", REPLACED "\xE2\x82\xAC"},
      {"\xF1\x80\x80\xE1\x80\xC2", REPLACED REPLACED REPLACED},
      // The example of the Unicode standard's table of maximal subparts.
      {"a\xF1\x80\x80\xE1\x80\xC2"
       "b\x80"
       "c\x80\xBF"
       "d",
       "a" REPLACED REPLACED REPLACED "b" REPLACED "c" REPLACED REPLACED "d"},
  };
  for (const auto& [bytes, text] : cases) {
    EXPECT_FALSE(isUtf8(bytes)) << testing::PrintToString(bytes);
    EXPECT_EQ(withReplacementCharacters(bytes), text) << testing::PrintToString(bytes);
  }
}

TEST(JXUtf8, DetectsInvalidBytesAtEveryPositionOfALongString) {
  for (std::size_t at = 0; at < 40; ++at) {
    std::string text(40, 'a');
    text[at] = '\xFF';
    EXPECT_FALSE(isUtf8(text)) << at;
    const std::string expected = std::string(at, 'a') + REPLACED + std::string(39 - at, 'a');
    EXPECT_EQ(withReplacementCharacters(text), expected);
    text.replace(at, 1, "\xC3\xA9");
    EXPECT_TRUE(isUtf8(text)) << at;
  }
}

}  // namespace
}  // namespace jx
