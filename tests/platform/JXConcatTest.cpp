// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXConcat.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using namespace std::string_view_literals;

TEST(Concat, JoinsThePartsInOrder) {
  EXPECT_EQ(concat({"a", "", "bc", "\0d"sv}), "abc\0d"sv);
  EXPECT_EQ(concat({}), "");
}

}  // namespace
}  // namespace jx
