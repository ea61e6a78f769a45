// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXServerSideUtils.h"

#include <gtest/gtest.h>

#include "jx/core/json/JXJsonReader.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

JXJsonObject object(const char* text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  EXPECT_EQ(reading.error, "") << text;
  return reading.value.object();
}

std::string parametersOf(const JXEvent& event) {
  eventPlatform();
  return jsonText(JXServerSideUtils::eventPropertiesToDictionary(event));
}

std::string flatItems(const char* text) {
  JXJsonObject result;
  result.set("items", JXServerSideUtils::itemsToDict(object(text)));
  return jsonText(result);
}

TEST(JXServerSideUtils, OmitsItemsIfTheEventHasNone) {
  EXPECT_EQ(parametersOf(*JXCustomEvent::initWithName("quiz")), R"({"event_name":"quiz"})");
}

TEST(JXServerSideUtils, KeepsEmptyItemList) {
  EXPECT_EQ(parametersOf(*JXViewCartEvent::init()), R"({"event_name":"view_cart","items":[]})");
}

TEST(JXServerSideUtils, FlattensItemsAndNumbersThemFromZero) {
  const auto second = lampItem();
  second->setID("2");
  EXPECT_EQ(parametersOf(*JXViewCartEvent::initWithItems({lampItem(), second})),
            R"({"event_name":"view_cart","items":[)"
            R"({"item_id":"1","jx_item_quantity":2,"jx_product_id":"L7","item_name":"Lamp",)"
            R"("jx_product_price":12.50,"jx_product_colors":[],"index":0},)"
            R"({"item_id":"2","jx_item_quantity":2,"jx_product_id":"L7","item_name":"Lamp",)"
            R"("jx_product_price":12.50,"jx_product_colors":[],"index":1}]})");
}

TEST(JXServerSideUtils, ConvertsObjectInItemToPrefixedString) {
  const auto item = lampItem();
  item->addAdditionalProperty_withDictValue("gift", object(R"({"for":"you","price":1.50})"));
  const auto event = JXViewCartEvent::initWithItems({item});
  const JXJsonObject flat = JXServerSideUtils::itemsToDict(event->getJsonObject()).at(0).object();
  EXPECT_EQ(flat.get("jx_item_gift").string(), JXString(R"({"for":"you","price":1.50})"));
}

TEST(JXServerSideUtils, ConvertsObjectsToStringsAndKeepsLists) {
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter(object(R"({"score":{"a":1},"answers":["x",{"y":2}]})"));
  EXPECT_EQ(parametersOf(*event),
            R"({"score":"{\"a\":1}","answers":["x",{"y":2}],"event_name":"quiz"})");
}

TEST(JXServerSideUtils, OmitsContextAndUser) {
  eventPlatform();
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter(object(R"({"user":{"id":1},"context":{"own":true},"k":"v"})"));
  EXPECT_EQ(parametersOf(*event), R"({"k":"v","event_name":"quiz"})");
}

TEST(JXServerSideUtils, LeavesTheEventUnchanged) {
  eventPlatform();
  const auto event = JXPurchaseEvent::init();
  event->addAdditionalParameter(object(R"({"user":{"id":1}})"));
  JXServerSideUtils::eventPropertiesToDictionary(*event).set("later", 1);
  EXPECT_EQ(jsonText(event->getAdditionalProperties()), R"({"user":{"id":1}})");
}

TEST(JXServerSideUtils, FlattensOnlyAListOfItems) {
  EXPECT_EQ(flatItems(R"({})"), R"({"items":[]})");
  EXPECT_EQ(flatItems(R"({"items":"none"})"), R"({"items":[]})");
  EXPECT_EQ(flatItems(R"({"items":{"id":"1"}})"), R"({"items":[]})");
  EXPECT_EQ(flatItems(R"({"items":null})"), R"({"items":[]})");
}

TEST(JXServerSideUtils, ConvertsItemThatIsNotAnObjectToItsIndex) {
  EXPECT_EQ(flatItems(R"({"items":["x",null,{"id":"3"}]})"),
            R"({"items":[{"index":0},{"index":1},{"item_id":"3","index":2}]})");
}

TEST(JXServerSideUtils, PrefixesIndexOfTheItemAndAddsItsPosition) {
  EXPECT_EQ(flatItems(R"({"items":[{"index":9,"coupon":"C"}]})"),
            R"({"items":[{"jx_item_index":9,"jx_item_coupon":"C","index":0}]})");
}

TEST(JXServerSideUtils, PrefixesProductIdAndUsesProductNameAsItemName) {
  JXJsonObject target = object(R"({"product":"gone","kept":true})");
  JXServerSideUtils::productToDict_into(
      object(R"({"id":"p","name":"Lamp","size":{"w":2},"category_1":"home"})"), target);
  EXPECT_EQ(jsonText(target), R"({"kept":true,"jx_product_id":"p","item_name":"Lamp",)"
                              R"("jx_product_size":"{\"w\":2}","jx_product_category_1":"home"})");
}

TEST(JXServerSideUtils, IgnoresProductThatIsNotAnObject) {
  EXPECT_EQ(flatItems(R"({"items":[{"product":"p","id":"1"}]})"),
            R"({"items":[{"item_id":"1","index":0}]})");
}

TEST(JXServerSideUtils, SetPropertyReplacesValueAndConvertsOnlyObjects) {
  JXJsonObject target = object(R"({"k":"old"})");
  JXServerSideUtils::setProperty_forKey_intoPropertiesDict(true, "k", target);
  JXServerSideUtils::setProperty_forKey_intoPropertiesDict(decimal("1.50"), "n", target);
  JXServerSideUtils::setProperty_forKey_intoPropertiesDict("t", "s", target);
  JXServerSideUtils::setProperty_forKey_intoPropertiesDict(object(R"({"a":[1]})"), "o", target);
  JXServerSideUtils::setProperty_forKey_intoPropertiesDict(object(R"({"a":[1]})").get("a"), "l",
                                                           target);
  EXPECT_EQ(jsonText(target), R"({"k":true,"n":1.50,"s":"t","o":"{\"a\":[1]}","l":[1]})");
}

TEST(JXServerSideUtils, WritesValidStringForCircularReference) {
  eventPlatform();
  JXJsonObject circle;
  circle.set("self", circle);
  circle.set("a", 1);
  const auto event = JXCustomEvent::initWithName("quiz");
  event->addAdditionalParameter_forJsonDict("circle", circle);
  EXPECT_EQ(parametersOf(*event), R"({"circle":"{\"a\":1}","event_name":"quiz"})");
  circle.clear();
}

}  // namespace
}  // namespace jx::test
