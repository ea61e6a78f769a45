// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/Printable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace jx {
namespace {

TEST(Printable, ReplacesControlCharactersWithSpaces) {
  EXPECT_EQ(asOneLine("a\nb\r\tc\033[31m\x7F"), "a b  c [31m ");
  EXPECT_EQ(asOneLine("a\u009B31m"), "a 31m");
  EXPECT_EQ(asOneLine("\u00A0\u00E9"), "\u00A0\u00E9");
}

TEST(Printable, ReplacesInvalidUtf8) { EXPECT_EQ(asOneLine("a\xFF"), "a\uFFFD"); }

TEST(Printable, TruncatesToWidthWithoutSplittingCharacters) {
  EXPECT_EQ(shortened("abc", 3), "abc");
  EXPECT_EQ(shortened("abcd", 3), "ab\u2026");
  EXPECT_EQ(shortened("\u00E9\u00E9\u00E9\u00E9", 3), "\u00E9\u00E9\u2026");
  EXPECT_EQ(shortened("ab", 1), "\u2026");
}

TEST(Printable, PadsByCharactersNotBytes) {
  EXPECT_EQ(padded("\u00E9", 3), "\u00E9  ");
  EXPECT_EQ(padded("abcd", 3), "abcd");
}

TEST(Printable, FormatsTimesAsIsoInUtc) {
  EXPECT_EQ(asIsoTime(0), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(asIsoTime(1'700'000'000'123), "2023-11-14T22:13:20.123Z");
  EXPECT_EQ(asIsoTime(-1), "1969-12-31T23:59:59.999Z");
  EXPECT_EQ(asIsoTime(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

}  // namespace
}  // namespace jx
