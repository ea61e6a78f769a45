// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXList.h"

#include <gtest/gtest.h>

#include <string>

#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/video/JXVideoContentEvent.h"

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

TEST(List, InsertsAtAPositionAndAppendsBehindTheEnd) {
  const Strings list{"a", "c"};
  list.insert(1, "b");
  list.insert(0, "_");
  list.insert(99, "d");
  EXPECT_EQ(joined(list), "_abcd");
}

TEST(List, InsertsItsOwnElement) {
  const Strings list{"a", "b"};
  list.insert(0, list[1]);
  EXPECT_EQ(joined(list), "bab");
}

TEST(List, RemovesOneElement) {
  const Strings list{"a", "b", "c"};
  const Strings copy = list;
  EXPECT_TRUE(list.removeAt(1));
  EXPECT_EQ(joined(copy), "ac");
  EXPECT_FALSE(list.removeAt(2));
  EXPECT_FALSE(list.removeAt(static_cast<std::size_t>(-1)));
  EXPECT_EQ(joined(copy), "ac");
}

TEST(List, ClearsTheElementsOfAllHandles) {
  const Strings list{"a"};
  const Strings copy = list;
  list.clear();
  EXPECT_EQ(copy.size(), 0u);
  EXPECT_TRUE(copy.isPresent());
}

TEST(List, IgnoresAllChangesIfNull) {
  const Strings list = nullptr;
  list.insert(0, "a");
  EXPECT_FALSE(list.removeAt(0));
  list.clear();
  EXPECT_FALSE(list.isPresent());
}

TEST(List, SettersAcceptInitialiserLists) {
  const auto product = JXProduct::init();
  product->setCategories({"a", "b"});
  product->setColors({"red"});
  ASSERT_EQ(product->categories().size(), 2u);
  EXPECT_EQ(product->categories()[1], JXString("b"));
  ASSERT_EQ(product->colors().size(), 1u);
  const auto first = JXItem::init();
  const auto second = JXItem::init();
  const auto cart = JXViewCartEvent::init();
  cart->setItems({first, second});
  ASSERT_EQ(cart->items().size(), 2u);
  EXPECT_EQ(cart->items()[1], second);
  EXPECT_EQ(JXViewCartEvent::initWithItems({first})->items().size(), 1u);
  cart->setItems({});
  EXPECT_EQ(cart->items().size(), 0u);
  EXPECT_TRUE(cart->items().isPresent());
  const auto video = JXVideoContentEvent::initWithMode_andSessionId(EJXVideoContentMode_START, "s");
  video->setKeywords({"drama", 2, true});
  ASSERT_EQ(video->keywords().size(), 3u);
  EXPECT_EQ(video->keywords().at(0).string(), JXString("drama"));
}

}  // namespace
}  // namespace jx::test
