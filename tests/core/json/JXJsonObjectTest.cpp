// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonObject.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "jx/core/json/JXJsonValue.h"

namespace jx {
namespace {

std::string keysOf(const JXJsonObject& object) {
  std::string keys;
  for (const JXJsonEntry& entry : object.entries())
    keys += entry.key.toStdString() + " ";
  return keys;
}

TEST(JXJsonObject, IsPresentAndEmptyByDefault) {
  const JXJsonObject object;
  EXPECT_TRUE(object.isPresent());
  EXPECT_EQ(object.size(), 0U);
  EXPECT_TRUE(object.entries().empty());
  EXPECT_FALSE(object.get("key").isPresent());
}

TEST(JXJsonObject, NullHandleIsEmptyAndIgnoresChanges) {
  JXJsonObject none(nullptr);
  none.set("key", 1);
  none.clear();
  EXPECT_FALSE(none.isPresent());
  EXPECT_EQ(none.size(), 0U);
  EXPECT_FALSE(none.contains("key"));
  EXPECT_FALSE(none.get("key").isPresent());
  EXPECT_FALSE(none.remove("key").isPresent());
  EXPECT_TRUE(none.entries().empty());
  EXPECT_FALSE(none.mutableCopy().isPresent());
}

TEST(JXJsonObject, CopiesOfAHandleShareTheEntries) {
  JXJsonObject object;
  JXJsonObject other = object;
  other.set("key", "value");
  EXPECT_TRUE(object.isSameAs(other));
  EXPECT_EQ(object.get("key").string(), JXString("value"));
  EXPECT_FALSE(object.isSameAs(JXJsonObject()));
}

TEST(JXJsonObject, ShowsLaterChangesOfANestedObject) {
  JXJsonObject outer;
  JXJsonObject inner;
  outer.set("inner", inner);
  inner.set("late", true);
  outer.get("inner").object().set("later", 2);
  EXPECT_EQ(keysOf(outer.get("inner").object()), "late later ");
  EXPECT_EQ(inner.size(), 2U);
}

TEST(JXJsonObject, ReplacingAValueKeepsThePositionOfItsKey) {
  JXJsonObject object;
  object.set("a", 1);
  object.set("b", 2);
  object.set("c", 3);
  object.set("a", "new");
  EXPECT_EQ(keysOf(object), "a b c ");
  EXPECT_EQ(object.get("a").string(), JXString("new"));
  EXPECT_EQ(object.size(), 3U);
}

TEST(JXJsonObject, AppendsAKeyThatWasRemovedAndSetAgain) {
  JXJsonObject object;
  object.set("a", 1);
  object.set("b", 2);
  EXPECT_EQ(object.remove("a").numberString(), JXString("1"));
  EXPECT_FALSE(object.contains("a"));
  object.set("a", 3);
  EXPECT_EQ(keysOf(object), "b a ");
}

TEST(JXJsonObject, RemovingAMissingKeyReturnsAnAbsentValue) {
  JXJsonObject object;
  object.set("null", JXJsonValue::null());
  EXPECT_FALSE(object.remove("other").isPresent());
  EXPECT_EQ(object.remove("null").kind(), JXJsonValue::Kind::Null);
}

TEST(JXJsonObject, SettingAnAbsentValueRemovesTheKey) {
  JXJsonObject object;
  object.set("a", 1);
  object.set("a", JXJsonValue());
  object.set("b", JXString());
  EXPECT_EQ(object.size(), 0U);
}

TEST(JXJsonObject, StoresJsonNull) {
  JXJsonObject object;
  object.set("a", JXJsonValue::null());
  EXPECT_TRUE(object.contains("a"));
  EXPECT_EQ(object.get("a").kind(), JXJsonValue::Kind::Null);
}

TEST(JXJsonObject, AcceptsAnyBytesAsAKey) {
  JXJsonObject object;
  object.set("", 1);
  object.set(std::string("a\0b", 3), 2);
  object.set("a", 3);
  EXPECT_EQ(object.size(), 3U);
  EXPECT_EQ(object.get("").numberString(), JXString("1"));
  EXPECT_EQ(object.get(std::string("a\0b", 3)).numberString(), JXString("2"));
  EXPECT_EQ(object.get("a").numberString(), JXString("3"));
}

TEST(JXJsonObject, MutableCopyCopiesOneLevel) {
  JXJsonObject object;
  JXJsonObject inner;
  JXJsonArray list;
  object.set("inner", inner);
  object.set("list", list);
  object.set("text", "old");

  JXJsonObject copy = object.mutableCopy();
  EXPECT_FALSE(copy.isSameAs(object));
  copy.set("text", "new");
  copy.set("added", 1);
  inner.set("shared", true);
  list.append(1);

  EXPECT_EQ(keysOf(object), "inner list text ");
  EXPECT_EQ(keysOf(copy), "inner list text added ");
  EXPECT_EQ(object.get("text").string(), JXString("old"));
  EXPECT_TRUE(copy.get("inner").object().get("shared").boolValue());
  EXPECT_EQ(copy.get("list").array().size(), 1U);
}

TEST(JXJsonObject, ClearRemovesTheEntriesOfEveryHandle) {
  JXJsonObject object;
  const JXJsonObject other = object;
  object.set("a", 1);
  object.clear();
  EXPECT_EQ(other.size(), 0U);
  object.set("b", 2);
  EXPECT_EQ(keysOf(other), "b ");
}

TEST(JXJsonObject, FindsTenThousandKeysAndKeepsTheirOrder) {
  JXJsonObject object;
  for (int i = 0; i < 10'000; ++i)
    object.set("key" + std::to_string(i), i);
  for (int i = 0; i < 10'000; i += 2)
    object.set("key" + std::to_string(i), -i);
  ASSERT_EQ(object.size(), 10'000U);
  for (int i = 0; i < 10'000; ++i) {
    const std::string key = "key" + std::to_string(i);
    ASSERT_EQ(object.entries()[static_cast<std::size_t>(i)].key, JXString(key));
    ASSERT_EQ(object.get(key).numberString(), JXString(std::to_string(i % 2 == 0 ? -i : i)));
  }
  EXPECT_FALSE(object.contains("key10000"));
}

TEST(JXJsonObject, FindsKeysAfterManyOthersWereRemoved) {
  JXJsonObject object;
  for (int i = 0; i < 1'000; ++i)
    object.set("key" + std::to_string(i), i);
  for (int i = 0; i < 1'000; ++i) {
    if (i % 10 == 0) continue;
    EXPECT_EQ(object.remove("key" + std::to_string(i)).numberString(), JXString(std::to_string(i)));
  }
  ASSERT_EQ(object.size(), 100U);
  for (int i = 0; i < 1'000; ++i) {
    EXPECT_EQ(object.contains("key" + std::to_string(i)), i % 10 == 0) << i;
  }
  EXPECT_EQ(object.entries()[99].key, JXString("key990"));
  // Shrinks below the index threshold and grows again.
  for (int i = 0; i < 1'000; i += 10)
    object.remove("key" + std::to_string(i));
  EXPECT_EQ(object.size(), 0U);
  for (int i = 0; i < 200; ++i)
    object.set("new" + std::to_string(i), i);
  EXPECT_EQ(object.get("new199").numberString(), JXString("199"));
  EXPECT_FALSE(object.contains("key0"));
}

TEST(JXJsonObject, CopyOfALargeObjectFindsItsOwnKeys) {
  JXJsonObject object;
  for (int i = 0; i < 500; ++i)
    object.set("key" + std::to_string(i), i);
  JXJsonObject copy = object.mutableCopy();
  copy.remove("key0");
  copy.set("key499", "changed");
  EXPECT_EQ(object.get("key0").numberString(), JXString("0"));
  EXPECT_EQ(object.get("key499").numberString(), JXString("499"));
  EXPECT_EQ(copy.get("key1").numberString(), JXString("1"));
}

TEST(JXJsonObject, AcceptsAKeyFromTheObjectItself) {
  JXJsonObject object;
  object.set("first key, too long to be stored inline", 1);
  for (int i = 0; i < 100; ++i) {
    object.set(std::string(object.entries()[0].key.view()) + std::to_string(i), i);
  }
  object.set(object.entries()[0].key.view(), object.entries()[5].value);
  EXPECT_EQ(object.get("first key, too long to be stored inline").numberString(), JXString("4"));
  EXPECT_TRUE(object.remove(object.entries()[0].key.view()).isPresent());
  EXPECT_EQ(object.size(), 100U);
}

TEST(JXJsonObject, ReplacesAValueWithOneInsideIt) {
  JXJsonObject object;
  {
    JXJsonObject inner;
    inner.set("text", "deep inside, and too long to be stored inline");
    object.set("a", std::move(inner));
  }
  object.set("a", object.get("a").object().entries()[0].value);
  EXPECT_EQ(object.get("a").string(), JXString("deep inside, and too long to be stored inline"));
}

TEST(JXJsonObject, CanContainItself) {
  JXJsonObject object;
  object.set("self", object);
  EXPECT_TRUE(object.get("self").object().get("self").object().isSameAs(object));
  // Breaks the circular reference, which would otherwise leak the object.
  object.clear();
  EXPECT_EQ(object.size(), 0U);
}

constexpr int kDeep = 100'000;

TEST(JXJsonObject, DestroysDeepNestingWithoutDeepRecursion) {
  JXJsonObject outermost;
  JXJsonObject innermost = outermost;
  for (int i = 0; i < kDeep; ++i) {
    JXJsonObject next;
    innermost.set("next", next);
    innermost = next;
  }
  outermost = JXJsonObject(nullptr);
  EXPECT_EQ(innermost.size(), 0U);
}

TEST(JXJsonObject, DestroysDeeplyNestedMixtureWithoutDeepRecursion) {
  JXJsonValue value("core");
  for (int i = 0; i < kDeep / 10; ++i) {
    JXJsonObject object;
    object.set("before", i);
    object.set("value", std::move(value));
    object.set("after", JXJsonArray());
    JXJsonArray array;
    array.append(object);
    array.append(i);
    value = array;
  }
  EXPECT_EQ(value.array().size(), 2U);
  value = JXJsonValue();
  EXPECT_FALSE(value.isPresent());
}

JXJsonValue deeplyNested() {
  JXJsonValue value("core");
  for (int i = 0; i < kDeep / 4; ++i) {
    JXJsonArray array;
    array.append(std::move(value));
    value = array;
  }
  return value;
}

TEST(JXJsonObject, ReplacesRemovesAndClearsDeeplyNestedValues) {
  JXJsonObject object;
  object.set("a", deeplyNested());
  object.set("a", 1);
  EXPECT_EQ(object.get("a").numberString(), JXString("1"));
  object.set("a", deeplyNested());
  object.remove("a");
  EXPECT_FALSE(object.contains("a"));
  object.set("a", deeplyNested());
  object.set("b", deeplyNested());
  object.clear();
  EXPECT_EQ(object.size(), 0U);
}

}  // namespace
}  // namespace jx
