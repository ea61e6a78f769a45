// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXDynamicStore.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "jx/core/json/JXJsonWriter.h"

namespace jx {
namespace {

std::string keysOf(const JXDynamicStore& store) {
  std::string keys;
  const JXJsonObject entries = store.entries();
  for (const JXJsonEntry& entry : entries.entries())
    keys += entry.key.toStdString() + " ";
  return keys;
}

TEST(JXDynamicStore, KeepsValuesInTheOrderOfTheirKeys) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("b", "1");
  store->addData_withValue("a", 2);
  store->addData_withValue("b", true);
  EXPECT_EQ(keysOf(*store), "b a ");
  EXPECT_TRUE(store->getData("b").boolValue());
  EXPECT_EQ(store->getData("a").numberString(), JXString("2"));
  EXPECT_FALSE(store->getData("c").isPresent());
}

TEST(JXDynamicStore, RemovesTheKeyForANullValueAndStoresJsonNull) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  store->addData_withValue("a", JXJsonValue());
  store->addData_withValue("b", JXJsonValue::null());
  EXPECT_EQ(keysOf(*store), "b ");
  EXPECT_EQ(store->getData("b").kind(), JXJsonValue::Kind::Null);
}

TEST(JXDynamicStore, DistinguishesNullKeysFromTheEmptyKey) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue(nullptr, "ignored");
  EXPECT_EQ(keysOf(*store), "");
  store->addData_withValue("", "empty");
  EXPECT_EQ(store->getData("").string(), JXString("empty"));
  EXPECT_FALSE(store->getData(nullptr).isPresent());
  EXPECT_FALSE(store->removeData(nullptr).isPresent());
  EXPECT_EQ(store->getData("").string(), JXString("empty"));
}

TEST(JXDynamicStore, RemoveDataReturnsTheRemovedValue) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", "value");
  EXPECT_EQ(store->removeData("a").string(), JXString("value"));
  EXPECT_FALSE(store->removeData("a").isPresent());
  EXPECT_FALSE(store->getData("a").isPresent());
}

TEST(JXDynamicStore, MergingReplacesValuesWithTheSameKey) {
  const auto store = JXDynamicStore::init();
  const auto other = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  store->addData_withValue("b", 2);
  other->addData_withValue("c", 3);
  other->addData_withValue("a", 4);
  store->addData(*other);
  EXPECT_EQ(keysOf(*store), "a b c ");
  EXPECT_EQ(store->getData("a").numberString(), JXString("4"));
  store->addData(*store);
  EXPECT_EQ(keysOf(*store), "a b c ");
  store->addData(store->entries());
  store->addData(JXJsonObject(nullptr));
  EXPECT_EQ(keysOf(*store), "a b c ");
}

TEST(JXDynamicStore, EntriesAreACopy) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  JXJsonObject entries = store->entries();
  entries.set("b", 2);
  store->addData_withValue("c", 3);
  EXPECT_EQ(keysOf(*store), "a c ");
  EXPECT_EQ(entries.size(), 2U);
}

TEST(JXDynamicStore, ClearDataRemovesEverything) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  store->clearData();
  EXPECT_EQ(keysOf(*store), "");
}

TEST(JXDynamicStore, CanBeUsedByManyThreads) {
  const auto store = JXDynamicStore::init();
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&store, number] {
      const std::string own = "key of thread " + std::to_string(number);
      for (int i = 0; i < 500; ++i) {
        store->addData_withValue(own, "a string that is too long for the small string buffer");
        store->addData_withValue("shared", own);
        store->getData("shared");
        store->entries();
        if (i != 499) store->removeData(own);
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(store->entries().size(), 5U);
}

TEST(JXDynamicStore, ReturnsSeveralStringsAtAnyPosition) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", "1");
  store->addData_withValue("number", 2);
  store->addData_withValue("b", "3");
  constexpr std::string_view kKeys[] = {"b", "none", "a", "number"};
  std::size_t positions[4] = {};
  const auto expect = [&](const JXString& b, const JXString& a) {
    JXString strings[4];
    store->getStrings(kKeys, 4, positions, strings);
    EXPECT_EQ(strings[0], b);
    EXPECT_EQ(strings[1], JXString());
    EXPECT_EQ(strings[2], a);
    EXPECT_EQ(strings[3], JXString());  // a number is not a string
  };
  expect("3", "1");
  store->addData_withValue("b", "4");
  expect("4", "1");
  store->removeData("a");
  expect("4", nullptr);
  store->addData_withValue("a", "5");
  expect("4", "5");
  store->clearData();
  expect(nullptr, nullptr);
}

TEST(JXDynamicStore, SetsAStringAtAnyPosition) {
  const auto store = JXDynamicStore::init();
  std::size_t position = 0;
  store->setString("b", position, "1");
  EXPECT_EQ(store->getString("b", position), "1");
  store->setString("b", position, "2");
  store->addData_withValue("a", "3");
  store->removeData("b");
  EXPECT_EQ(store->getString("b", position), nullptr);
  EXPECT_EQ(store->getData("a").string(), "3");
  store->setString("b", position, "4");
  EXPECT_EQ(store->getData("b").string(), "4");
  EXPECT_EQ(store->getData("a").string(), "3");
}

TEST(JXDynamicStore, ReplacesAnyValueByAString) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  store->addData_withValue("b", JXJsonObject());
  std::size_t first = 0;
  std::size_t second = 0;
  store->setString("a", first, "x");
  store->setString("b", second, "y");
  EXPECT_EQ(store->getData("a").string(), "x");
  EXPECT_EQ(store->getData("b").string(), "y");
  EXPECT_EQ(store->entries().size(), 2U);
}

TEST(JXDynamicStore, RemovesTheKeyWhenItsStringIsSetToNull) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", "1");
  std::size_t position = 0;
  store->setString("a", position, nullptr);
  store->setString("none", position, nullptr);
  EXPECT_TRUE(store->isEmpty());
}

TEST(JXDynamicStore, SetsSeveralStringsInOrder) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("b", 7);
  store->addData_withValue("removed", "old");
  constexpr std::string_view kKeys[] = {"a", "b", "removed", "c"};
  std::size_t positions[4] = {};
  JXString strings[] = {"1", "2", nullptr, "3"};
  store->setStrings(kKeys, 4, positions, strings);
  EXPECT_EQ(JXJsonWriter::write(store->entries(), JXJsonStyle::Compact).text,
            R"({"b":"2","a":"1","c":"3"})");
}

}  // namespace
}  // namespace jx
