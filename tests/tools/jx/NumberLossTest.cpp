// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/NumberLoss.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(NumberLoss, DetectsNumbersConvertedFromADouble) {
  EXPECT_EQ(describeLoss("139.12000000000001"),
            "139.12000000000001 lost precision in binary floating point; the exact value is "
            "probably 139.12");
  EXPECT_EQ(describeLoss("0.30000000000000004"),
            "0.30000000000000004 lost precision in binary floating point; the exact value is "
            "probably 0.3");
  EXPECT_EQ(describeLoss("-3.3999999999999999"),
            "-3.3999999999999999 lost precision in binary floating point; the exact value is "
            "probably -3.4");
}

TEST(NumberLoss, DetectsNumbersConvertedFromAFloat) {
  EXPECT_EQ(describeLoss("139.1199951171875"),
            "139.1199951171875 lost precision in binary floating point; the exact value is "
            "probably 139.12");
  EXPECT_EQ(describeLoss("0.10000000149011612"),
            "0.10000000149011612 lost precision in binary floating point; the exact value is "
            "probably 0.1");
}

TEST(NumberLoss, ReportsNothingForExactNumbers) {
  for (const char* number :
       {"0", "-1", "139.12", "12.50", "1843.2", "0.0009765625", "1700000000123", "23.976023976",
        "0.3333333333333333", "3.141592653589793", "9007199254740993", "1e400", "1234567.891",
        "99999999999999999999999999999999999999", "0.12345678901234567890123456789"}) {
    EXPECT_EQ(describeLoss(number), "") << number;
  }
}

TEST(NumberLoss, AmountsHaveAtMostThirtyEightDigits) {
  EXPECT_TRUE(fitsAmount("12345678901234567890123456789012345678"));
  EXPECT_FALSE(fitsAmount("123456789012345678901234567890123456789"));
  EXPECT_TRUE(fitsAmount("1234567890123456789012345678901234567800"));
  EXPECT_TRUE(fitsAmount("0.00000000000000000000000000000000000000000000001"));
  EXPECT_TRUE(fitsAmount("1e3"));
  EXPECT_FALSE(fitsAmount("1e400"));
}

}  // namespace
}  // namespace jx
