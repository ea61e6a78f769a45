// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXStringBuilder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace jx::test {
namespace {

TEST(JXStringBuilder, ReturnsTheAppendedString) {
  JXStringBuilder builder(0);
  builder.append(std::string_view("Lantern"));
  builder.append(',');
  builder.append(std::string_view());
  builder.append(3, '.');
  char* const place = builder.extend(2);
  place[0] = 'o';
  place[1] = 'k';
  EXPECT_EQ(builder.view(), "Lantern,...ok");
  const JXString text = builder.finish();
  EXPECT_EQ(text, JXString("Lantern,...ok"));
  EXPECT_STREQ(text.c_str(), "Lantern,...ok");
}

TEST(JXStringBuilder, KeepsALongStringWhileGrowing) {
  JXStringBuilder builder(1);
  std::string expected;
  for (int i = 0; i < 1'000; ++i) {
    builder.append(std::string_view("0123456789"));
    expected += "0123456789";
  }
  EXPECT_EQ(builder.size(), 10'000u);
  const JXString text = builder.finish();
  EXPECT_EQ(text.toStdString(), expected);
  EXPECT_EQ(text.c_str()[10'000], '\0');
}

TEST(JXStringBuilder, ReturnsTheEmptyStringIfNothingWasAppended) {
  JXStringBuilder builder(0);
  const JXString text = builder.finish();
  EXPECT_TRUE(text.isPresent());
  EXPECT_EQ(text.size(), 0u);
}

TEST(JXStringBuilder, IsEmptyAfterFinish) {
  JXStringBuilder builder(100);
  builder.append(50, 'a');
  const JXString first = builder.finish();
  builder.append(40, 'b');
  EXPECT_EQ(first.toStdString(), std::string(50, 'a'));
  EXPECT_EQ(builder.finish().toStdString(), std::string(40, 'b'));
}

TEST(DecimalString, ReturnsTheDigitsOfANumber) {
  EXPECT_EQ(decimalString(0).toStdString(), "0");
  EXPECT_EQ(decimalString(10).toStdString(), "10");
  EXPECT_EQ(decimalString(1'790'000'000'000).toStdString(), "1790000000000");
  EXPECT_EQ(decimalString(std::numeric_limits<std::uint64_t>::max()).toStdString(),
            "18446744073709551615");
}

}  // namespace
}  // namespace jx::test
