// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/NumberLoss.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

TEST(NumberLoss, ADoubleShowsWhereItCameFrom) {
  EXPECT_EQ(lossOf("139.12000000000001"),
            "139.12000000000001 has been through binary floating point; 139.12 was meant");
  EXPECT_EQ(lossOf("0.30000000000000004"),
            "0.30000000000000004 has been through binary floating point; 0.3 was meant");
  EXPECT_EQ(lossOf("-3.3999999999999999"),
            "-3.3999999999999999 has been through binary floating point; -3.4 was meant");
}

TEST(NumberLoss, AFloatShowsIt) {
  EXPECT_EQ(lossOf("139.1199951171875"),
            "139.1199951171875 has been through binary floating point; 139.12 was meant");
  EXPECT_EQ(lossOf("0.10000000149011612"),
            "0.10000000149011612 has been through binary floating point; 0.1 was meant");
}

TEST(NumberLoss, ExactNumbersHaveLostNothing) {
  for (const char* number :
       {"0", "-1", "139.12", "12.50", "1843.2", "0.0009765625", "1700000000123", "23.976023976",
        "0.3333333333333333", "3.141592653589793", "9007199254740993", "1e400", "1234567.891",
        "99999999999999999999999999999999999999", "0.12345678901234567890123456789"}) {
    EXPECT_EQ(lossOf(number), "") << number;
  }
}

TEST(NumberLoss, AnAmountHasThirtyEightDigits) {
  EXPECT_TRUE(fitsAnAmount("12345678901234567890123456789012345678"));
  EXPECT_FALSE(fitsAnAmount("123456789012345678901234567890123456789"));
  EXPECT_TRUE(fitsAnAmount("1234567890123456789012345678901234567800"));
  EXPECT_TRUE(fitsAnAmount("0.00000000000000000000000000000000000000000000001"));
  EXPECT_TRUE(fitsAnAmount("1e3"));
  EXPECT_FALSE(fitsAnAmount("1e400"));
}

}  // namespace
}  // namespace jx
