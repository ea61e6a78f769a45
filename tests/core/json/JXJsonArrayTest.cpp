// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonArray.h"

#include <gtest/gtest.h>

#include <string>

#include "jx/core/json/JXJsonValue.h"

namespace jx {
namespace {

TEST(JXJsonArray, KeepsValuesInOrder) {
  JXJsonArray array;
  array.append("a");
  array.append(2);
  array.append(JXJsonValue::null());
  array.append(false);
  ASSERT_EQ(array.size(), 4U);
  EXPECT_EQ(array.at(0).string(), JXString("a"));
  EXPECT_EQ(array.at(1).numberString(), JXString("2"));
  EXPECT_EQ(array.at(2).kind(), JXJsonValue::Kind::Null);
  EXPECT_EQ(array.at(3).kind(), JXJsonValue::Kind::Bool);
  std::string kinds;
  for (const JXJsonValue& value : array.values())
    kinds += std::to_string(static_cast<int>(value.kind()));
  EXPECT_EQ(kinds, "4312");
}

TEST(JXJsonArray, IgnoresAbsentValues) {
  JXJsonArray array;
  array.append(JXJsonValue());
  array.append(JXString());
  array.append(JXDecimal::nan());
  EXPECT_EQ(array.size(), 0U);
}

TEST(JXJsonArray, ReturnsAnAbsentValueOutOfRange) {
  JXJsonArray array;
  array.append(1);
  EXPECT_FALSE(array.at(1).isPresent());
  EXPECT_FALSE(array.at(static_cast<std::size_t>(-1)).isPresent());
}

TEST(JXJsonArray, NullHandleIsEmptyAndIgnoresChanges) {
  JXJsonArray none(nullptr);
  none.append(1);
  EXPECT_FALSE(none.isPresent());
  EXPECT_EQ(none.size(), 0U);
  EXPECT_FALSE(none.at(0).isPresent());
  EXPECT_TRUE(none.values().empty());
}

TEST(JXJsonArray, CopiesOfAHandleShareTheValues) {
  JXJsonArray array;
  JXJsonArray other = array;
  other.append(1);
  EXPECT_EQ(array.size(), 1U);
  EXPECT_TRUE(array.isSameAs(other));
  EXPECT_FALSE(array.isSameAs(JXJsonArray()));
}

TEST(JXJsonArray, AppendsItsOwnElements) {
  JXJsonArray array;
  array.append("a string that is too long to be stored inline");
  for (int i = 0; i < 100; ++i)
    array.append(array.values()[0]);
  EXPECT_EQ(array.size(), 101U);
  EXPECT_EQ(array.at(100).string(), JXString("a string that is too long to be stored inline"));
}

TEST(JXJsonArray, DestroysDeepNestingWithoutDeepRecursion) {
  JXJsonArray array;
  array.append("core");
  for (int i = 0; i < 100'000; ++i) {
    JXJsonArray outer;
    outer.append(array);
    array = outer;
  }
  EXPECT_EQ(array.size(), 1U);
  array = JXJsonArray();
  EXPECT_EQ(array.size(), 0U);
}

TEST(JXJsonArray, AcceptsAnInitialiserList) {
  const JXJsonArray array{"a", 2, true, JXDecimal::fromString("1.50"), JXString(), JXJsonArray{1}};
  ASSERT_EQ(array.size(), 5U) << "a null string is skipped";
  EXPECT_EQ(array.at(0).string(), JXString("a"));
  EXPECT_EQ(array.at(1).numberString(), JXString("2"));
  EXPECT_TRUE(array.at(2).boolValue());
  EXPECT_EQ(array.at(3).numberString(), JXString("1.50"));
  EXPECT_EQ(array.at(4).array().size(), 1U);
  const JXJsonArray copy(array);
  EXPECT_TRUE(copy.isSameAs(array));
}

TEST(JXJsonArray, InsertsAtAPositionAndAppendsBehindTheEnd) {
  JXJsonArray array{"b"};
  array.insert(0, "a");
  array.insert(99, "c");
  array.insert(0, JXJsonValue());
  ASSERT_EQ(array.size(), 3U);
  EXPECT_EQ(array.at(0).string(), JXString("a"));
  EXPECT_EQ(array.at(1).string(), JXString("b"));
  EXPECT_EQ(array.at(2).string(), JXString("c"));
}

TEST(JXJsonArray, RemovesAndReturnsAValue) {
  JXJsonArray array{"a", "b", "c"};
  EXPECT_EQ(array.removeAt(1).string(), JXString("b"));
  EXPECT_FALSE(array.removeAt(2).isPresent());
  ASSERT_EQ(array.size(), 2U);
  EXPECT_EQ(array.at(1).string(), JXString("c"));
}

TEST(JXJsonArray, ClearsTheValuesOfAllHandles) {
  JXJsonArray array{"a", 2};
  const JXJsonArray copy = array;
  array.clear();
  EXPECT_EQ(copy.size(), 0U);
  EXPECT_TRUE(copy.isPresent());
}

TEST(JXJsonArray, ClearsAnArrayThatContainsItself) {
  JXJsonArray array;
  array.append(array);
  array.clear();
  EXPECT_EQ(array.size(), 0U);
}

TEST(JXJsonArray, NullHandleIgnoresInsertRemoveAndClear) {
  JXJsonArray none(nullptr);
  none.insert(0, 1);
  EXPECT_FALSE(none.removeAt(0).isPresent());
  none.clear();
  EXPECT_FALSE(none.isPresent());
}

}  // namespace
}  // namespace jx
