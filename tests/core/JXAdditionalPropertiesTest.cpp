// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXAdditionalProperties.h"

#include <gtest/gtest.h>

#include <string>

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXUtils.h"

namespace jx {
namespace {

std::string json(const std::shared_ptr<JXAdditionalProperties>& object) {
  return JXUtils::jsonDictionaryToString(object->getAdditionalProperties()).toStdString();
}

TEST(JXAdditionalProperties, IsInitiallyEmpty) {
  EXPECT_EQ(json(JXAdditionalProperties::init()), "{}");
}

TEST(JXAdditionalProperties, ReplacesAnEarlierValueOfTheSameKey) {
  const auto object = JXAdditionalProperties::init();
  object->addAdditionalProperty_withStringValue("store", "uk");
  object->addAdditionalProperty_withStringValue("shelf", "top");
  object->addAdditionalProperty_withStringValue("store", "fr");
  EXPECT_EQ(json(object), R"({"store":"fr","shelf":"top"})");
  JXJsonObject dict;
  dict.set("a", 1);
  object->addAdditionalProperty_withDictValue("store", dict);
  EXPECT_EQ(json(object), R"({"store":{"a":1},"shelf":"top"})");
}

TEST(JXAdditionalProperties, IgnoresNullKeysAndValues) {
  const auto object = JXAdditionalProperties::init();
  object->addAdditionalProperty_withStringValue("store", "uk");
  object->addAdditionalProperty_withStringValue("store", nullptr);
  object->addAdditionalProperty_withStringValue(nullptr, "value");
  object->addAdditionalProperty_withDictValue("store", nullptr);
  object->addAdditionalProperty_withDictValue(nullptr, JXJsonObject());
  object->addAdditionalProperty(JXJsonObject(nullptr));
  EXPECT_EQ(json(object), R"({"store":"uk"})");
}

TEST(JXAdditionalProperties, KeepsEmptyKeysAndStrings) {
  const auto object = JXAdditionalProperties::init();
  object->addAdditionalProperty_withStringValue("", "");
  EXPECT_EQ(json(object), R"({"":""})");
}

TEST(JXAdditionalProperties, StoresADictByReference) {
  const auto object = JXAdditionalProperties::init();
  JXJsonObject dict;
  object->addAdditionalProperty_withDictValue("gift", dict);
  dict.set("wrapped", true);
  EXPECT_EQ(json(object), R"({"gift":{"wrapped":true}})");
}

TEST(JXAdditionalProperties, AddsEveryEntryOfAnObjectIncludingJsonNull) {
  const auto object = JXAdditionalProperties::init();
  object->addAdditionalProperty_withStringValue("b", "before");
  JXJsonObject entries;
  entries.set("a", JXJsonValue::null());
  entries.set("b", JXJsonValue::numberFromString("1.50"));
  entries.set("c", JXJsonArray());
  object->addAdditionalProperty(entries);
  EXPECT_EQ(json(object), R"({"b":1.50,"a":null,"c":[]})");
  entries.set("late", 1);
  EXPECT_EQ(json(object), R"({"b":1.50,"a":null,"c":[]})");
}

TEST(JXAdditionalProperties, AddsTheCurrentPairsOfAStore) {
  const auto object = JXAdditionalProperties::init();
  const auto store = JXDynamicStore::init();
  store->addData_withValue("store", "uk");
  store->addData_withValue("tills", 3);
  object->addAdditionalProperty(*store);
  store->addData_withValue("store", "fr");
  EXPECT_EQ(json(object), R"({"store":"uk","tills":3})");
}

TEST(JXAdditionalProperties, AddingItsOwnPropertiesHasNoEffect) {
  const auto object = JXAdditionalProperties::init();
  object->addAdditionalProperty_withStringValue("a", "1");
  object->addAdditionalProperty(object->getAdditionalProperties());
  object->addAdditionalProperty(object->getAdditionalProperties().mutableCopy());
  EXPECT_EQ(json(object), R"({"a":"1"})");
}

TEST(JXAdditionalProperties, ReturnsItsOwnObjectNotACopy) {
  const auto object = JXAdditionalProperties::init();
  object->getAdditionalProperties().set("direct", 1);
  EXPECT_EQ(json(object), R"({"direct":1})");
}

TEST(JXAdditionalProperties, ReturnsTheSameObjectBeforeAndAfterTheFirstProperty) {
  const auto object = JXAdditionalProperties::init();
  const JXJsonObject properties = object->getAdditionalProperties();
  object->addAdditionalProperty_withStringValue("a", "1");
  EXPECT_TRUE(properties.isSameAs(object->getAdditionalProperties()));
  EXPECT_EQ(properties.get("a").string(), JXString("1"));
}

TEST(JXAdditionalProperties, ReturnsACopyForAnObjectOfSeveralThreads) {
  const auto object = JXAdditionalProperties::initShared();
  JXJsonObject copy = object->getAdditionalProperties();
  EXPECT_TRUE(copy.isPresent());
  copy.set("a", 1);
  EXPECT_EQ(json(object), "{}");
  object->addAdditionalProperty_withStringValue("b", "2");
  EXPECT_EQ(json(object), R"({"b":"2"})");
  EXPECT_FALSE(object->getAdditionalProperties().isSameAs(object->getAdditionalProperties()));
}

}  // namespace
}  // namespace jx
