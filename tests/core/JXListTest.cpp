// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXList.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <utility>
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

TEST(JXList, CopiesOfAnEmptyListShareLaterElements) {
  const JXList<std::string> list;
  const JXList<std::string> copy = list;
  JXList<std::string> assigned{"replaced"};
  assigned = list;
  list.append("a");
  assigned.append("b");
  EXPECT_TRUE(copy.isSameAs(assigned));
  ASSERT_EQ(copy.size(), 2U);
  EXPECT_EQ(copy[1], "b");
}

TEST(JXList, EmptyListsAreTheSameOnlyIfOneIsACopyOfTheOther) {
  const JXList<int> empty;
  EXPECT_TRUE(empty.isSameAs(empty));
  EXPECT_FALSE(empty.isSameAs(nullptr));
  EXPECT_TRUE(JXList<int>(nullptr).isSameAs(nullptr));
}

TEST(JXList, IsNullAfterAMove) {
  JXList<std::string> list{"a"};
  const JXList<std::string> copy = list;
  const JXList<std::string> moved = std::move(list);
  EXPECT_FALSE(list.isPresent());
  list.append("ignored");
  EXPECT_EQ(moved.size(), 1U);
  EXPECT_TRUE(moved.isSameAs(copy));
  list = moved;
  EXPECT_TRUE(list.isSameAs(copy));
  list = nullptr;
  EXPECT_FALSE(list.isPresent());
  EXPECT_EQ(moved.size(), 1U);
}

TEST(JXList, KeepsManyElementsInOrder) {
  const JXList<std::string> list;
  for (int i = 0; i < 20; ++i)
    list.insert(0, std::to_string(i));
  ASSERT_EQ(list.size(), 20U);
  EXPECT_EQ(list[0], "19");
  EXPECT_EQ(list[19], "0");
  EXPECT_TRUE(list.removeAt(0));
  EXPECT_FALSE(list.removeAt(19));
  EXPECT_EQ(list[0], "18");
  list.clear();
  EXPECT_TRUE(list.isPresent());
  EXPECT_EQ(list.begin(), list.end());
  list.append("after");
  EXPECT_EQ(list[0], "after");
}

TEST(JXList, DestroysItsElementsWithTheLastHandle) {
  const auto element = std::make_shared<int>(1);
  {
    const JXList<std::shared_ptr<int>> list;
    for (int i = 0; i < 6; ++i)
      list.append(element);
    const JXList<std::shared_ptr<int>> copy = list;
    EXPECT_EQ(element.use_count(), 7);
  }
  EXPECT_EQ(element.use_count(), 1);
}

TEST(JXList, SeveralThreadsMayCopyAnEmptyList) {
  for (int round = 0; round < 50; ++round) {
    const JXList<int> list;
    std::vector<JXList<int>> copies(4, nullptr);
    std::vector<std::thread> threads;
    for (JXList<int>& copy : copies)
      threads.emplace_back([&] { copy = list; });
    for (std::thread& thread : threads)
      thread.join();
    list.append(round);
    for (const JXList<int>& copy : copies) {
      ASSERT_EQ(copy.size(), 1U);
      EXPECT_EQ(copy[0], round);
    }
  }
}

}  // namespace
}  // namespace jx
