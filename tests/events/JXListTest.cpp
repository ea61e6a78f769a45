// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXList.h"

#include <gtest/gtest.h>

#include <string>

namespace jx::test {
namespace {

using Texts = JXList<std::string>;

std::string joined(const Texts& list) {
  std::string text;
  for (const std::string& element : list)
    text += element;
  return text;
}

TEST(List, IsEmptyAndPresentWhenItIsMade) {
  const Texts list;
  EXPECT_TRUE(list.isPresent());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(joined(list), "");
}

TEST(List, AnAbsentOneHoldsNothingAndIgnoresWhatIsAppended) {
  const Texts list = nullptr;
  list.append("a");
  list.appendAll(Texts{"a"});
  EXPECT_FALSE(list.isPresent());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(joined(list), "");
}

TEST(List, KeepsTheOrderOfWhatIsAppended) {
  const Texts list{"b", "a"};
  list.append("c");
  EXPECT_EQ(joined(list), "bac");
  EXPECT_EQ(list[1], "a");
}

TEST(List, CopiesShareTheElements) {
  const Texts list;
  const Texts copy = list;
  copy.append("a");
  EXPECT_EQ(joined(list), "a");
  EXPECT_TRUE(list.isSameAs(copy));
  EXPECT_FALSE(list.isSameAs(Texts{"a"}));
}

TEST(List, MadeFromAVectorHasElementsOfItsOwn) {
  std::vector<std::string> vector{"a"};
  const Texts list = vector;
  vector.push_back("b");
  EXPECT_EQ(joined(list), "a");
}

TEST(List, CanBeAppendedToItself) {
  const Texts list{"a", "b"};
  list.appendAll(list);
  EXPECT_EQ(joined(list), "abab");
}

TEST(List, AppendingAnAbsentOneChangesNothing) {
  const Texts list{"a"};
  list.appendAll(nullptr);
  EXPECT_EQ(joined(list), "a");
}

}  // namespace
}  // namespace jx::test
