// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXList.h"

#include <gtest/gtest.h>

#include <string>

namespace jx::test {
namespace {

using Strings = JXList<std::string>;

std::string joined(const Strings& list) {
  std::string result;
  for (const std::string& element : list)
    result += element;
  return result;
}

TEST(List, IsEmptyAndPresentByDefault) {
  const Strings list;
  EXPECT_TRUE(list.isPresent());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(joined(list), "");
}

TEST(List, IgnoresAppendsIfNull) {
  const Strings list = nullptr;
  list.append("a");
  list.appendAll(Strings{"a"});
  EXPECT_FALSE(list.isPresent());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(joined(list), "");
}

TEST(List, KeepsTheOrderOfAppendedElements) {
  const Strings list{"b", "a"};
  list.append("c");
  EXPECT_EQ(joined(list), "bac");
  EXPECT_EQ(list[1], "a");
}

TEST(List, CopiesShareTheElements) {
  const Strings list;
  const Strings copy = list;
  copy.append("a");
  EXPECT_EQ(joined(list), "a");
  EXPECT_TRUE(list.isSameAs(copy));
  EXPECT_FALSE(list.isSameAs(Strings{"a"}));
}

TEST(List, CopiesTheElementsOfAVector) {
  std::vector<std::string> vector{"a"};
  const Strings list = vector;
  vector.push_back("b");
  EXPECT_EQ(joined(list), "a");
}

TEST(List, AppendsToItself) {
  const Strings list{"a", "b"};
  list.appendAll(list);
  EXPECT_EQ(joined(list), "abab");
}

TEST(List, IgnoresAppendingANullList) {
  const Strings list{"a"};
  list.appendAll(nullptr);
  EXPECT_EQ(joined(list), "a");
}

}  // namespace
}  // namespace jx::test
