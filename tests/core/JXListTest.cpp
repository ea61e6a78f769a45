// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace jx {
namespace {

TEST(JXList, NullListIsEmptyAndIgnoresAppends) {
  const JXList<std::string> none(nullptr);
  none.append("a");
  none.appendAll({"b"});
  EXPECT_FALSE(none.isPresent());
  EXPECT_EQ(none.size(), 0U);
  EXPECT_EQ(none.begin(), none.end());
}

TEST(JXList, EmptyListIsNotNull) {
  const JXList<int> empty;
  EXPECT_TRUE(empty.isPresent());
  EXPECT_EQ(empty.size(), 0U);
  EXPECT_FALSE(empty.isSameAs(JXList<int>()));
}

TEST(JXList, CopiesShareTheirElements) {
  const JXList<std::string> list{"a", "b"};
  const JXList<std::string> copy = list;
  copy.append("c");
  EXPECT_TRUE(copy.isSameAs(list));
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[2], "c");
}

TEST(JXList, CopiesAVector) {
  std::vector<std::string> elements{"a"};
  const JXList<std::string> list(elements);
  elements.push_back("b");
  EXPECT_EQ(list.size(), 1U);
}

TEST(JXList, AppendsAllElementsOfAnotherListAndOfItself) {
  const JXList<std::string> list{"a", "b, too long for the small string buffer"};
  list.appendAll(nullptr);
  list.appendAll(list);
  std::string all;
  for (const std::string& element : list)
    all += element.substr(0, 1);
  EXPECT_EQ(all, "abab");
}

}  // namespace
}  // namespace jx
