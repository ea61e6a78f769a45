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

using Place = JXDynamicStore::Place;

JXString read(const std::shared_ptr<JXDynamicStore>& store, std::string_view key, Place& place) {
  JXString string = "replaced";
  JXDynamicStore::Strings(store.get()).read(key, place, string);
  return string;
}

void set(const std::shared_ptr<JXDynamicStore>& store, std::string_view key, Place& place,
         const JXString& string) {
  JXDynamicStore::Strings(store.get()).set(key, place, string);
}

TEST(JXDynamicStore, ReturnsStringsAtAnyPlace) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", "1");
  store->addData_withValue("number", 2);
  store->addData_withValue("b", "3");
  Place places[4];
  const auto expect = [&](const JXString& b, const JXString& a) {
    EXPECT_EQ(read(store, "b", places[0]), b);
    EXPECT_EQ(read(store, "none", places[1]), JXString());
    EXPECT_EQ(read(store, "a", places[2]), a);
    EXPECT_EQ(read(store, "number", places[3]), JXString());  // not a string
    EXPECT_EQ(JXDynamicStore::Strings(store.get()).view("b", places[0]), b.view());
  };
  expect("3", "1");
  store->addData_withValue("b", "4");
  expect("4", "1");
  store->removeData("a");
  expect("4", nullptr);
  store->addData_withValue("a", "5");
  expect("4", "5");
  store->addData(*[] {
    auto other = JXDynamicStore::init();
    other->addData_withValue("c", "6");
    return other;
  }());
  expect("4", "5");
  store->clearData();
  expect(nullptr, nullptr);
}

TEST(JXDynamicStore, FindsAKeyThatIsAddedAfterItWasMissing) {
  const auto store = JXDynamicStore::init();
  Place place;
  Place other;
  EXPECT_EQ(read(store, "a", place), JXString());
  set(store, "a", other, "1");
  EXPECT_EQ(read(store, "a", place), "1");
}

TEST(JXDynamicStore, FindsAKeyAtAPlaceOfAnotherStore) {
  const auto first = JXDynamicStore::init();
  first->addData_withValue("a", "1");
  const auto second = JXDynamicStore::init();
  second->addData_withValue("b", "2");
  second->addData_withValue("a", "3");
  Place place;
  EXPECT_EQ(read(first, "a", place), "1");
  EXPECT_EQ(read(second, "a", place), "3");
  EXPECT_EQ(read(first, "a", place), "1");
}

TEST(JXDynamicStore, ReturnsNullAndIgnoresChangesWithoutAStore) {
  Place place;
  JXDynamicStore::Strings none(nullptr);
  JXString string = "replaced";
  none.set("a", place, "1");
  none.read("a", place, string);
  EXPECT_EQ(string, JXString());
  EXPECT_EQ(none.view("a", place), "");
}

TEST(JXDynamicStore, SetsAStringAtAnyPlace) {
  const auto store = JXDynamicStore::init();
  Place place;
  set(store, "b", place, "1");
  EXPECT_EQ(read(store, "b", place), "1");
  set(store, "b", place, "2");
  store->addData_withValue("a", "3");
  store->removeData("b");
  EXPECT_EQ(read(store, "b", place), nullptr);
  EXPECT_EQ(store->getData("a").string(), "3");
  set(store, "b", place, "4");
  EXPECT_EQ(store->getData("b").string(), "4");
  EXPECT_EQ(store->getData("a").string(), "3");
}

TEST(JXDynamicStore, ReplacesAnyValueByAString) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", 1);
  store->addData_withValue("b", JXJsonObject());
  Place first;
  Place second;
  set(store, "a", first, "x");
  set(store, "b", second, "y");
  EXPECT_EQ(store->getData("a").string(), "x");
  EXPECT_EQ(store->getData("b").string(), "y");
  EXPECT_EQ(store->entries().size(), 2U);
}

TEST(JXDynamicStore, RemovesTheKeyWhenItsStringIsSetToNull) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("a", "1");
  Place place;
  set(store, "a", place, nullptr);
  set(store, "none", place, nullptr);
  EXPECT_TRUE(store->isEmpty());
}

TEST(JXDynamicStore, KeepsTheOrderOfKeysWhenStringsAreSet) {
  const auto store = JXDynamicStore::init();
  store->addData_withValue("b", 7);
  store->addData_withValue("removed", "old");
  Place places[4];
  {
    JXDynamicStore::Strings strings(store.get());
    strings.set("a", places[0], "1");
    strings.set("b", places[1], "2");
    strings.set("removed", places[2], nullptr);
    strings.set("c", places[3], "3");
    EXPECT_EQ(strings.view("a", places[0]), "1");
  }
  EXPECT_EQ(JXJsonWriter::write(store->entries(), JXJsonStyle::Compact).text,
            R"({"b":"2","a":"1","c":"3"})");
}

}  // namespace
}  // namespace jx
