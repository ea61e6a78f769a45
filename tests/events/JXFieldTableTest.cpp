// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXFieldTable.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>

#include "jx/core/json/JXJsonReader.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "jx/events/video/JXVideoAdEvent.h"
#include "jx/events/video/JXVideoContentEvent.h"
#include "jx/events/video/JXVideoPlaybackEvent.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

JXJsonValue json(const char* text) {
  const JXJsonReading reading = JXJsonReader::read(text);
  EXPECT_EQ(reading.error, "") << text;
  return reading.value;
}

// Returns the error, or an empty string if the property accepts the value.
std::string set(JXEvent& event, std::string_view property, const char* text) {
  return event.ownEventClass().setProperty(event, property, json(text));
}

std::string set(JXProduct& product, std::string_view property, const char* text) {
  const std::size_t field = JXProduct::fields().findProperty(property);
  return JXProduct::fields().set(product, field, json(text));
}

TEST(JXEnumStrings, ReturnsNullOutsideTheEnumeration) {
  static constexpr std::array<std::string_view, 2> strings{"a", "b"};
  static constexpr std::array<std::string_view, 2> enumerators{"A", "B"};
  const JXEnumStrings table(strings, enumerators);
  EXPECT_EQ(table.stringOf(0), JXString("a"));
  EXPECT_EQ(table.stringOf(1), JXString("b"));
  EXPECT_EQ(table.stringOf(2), JXString());
  EXPECT_EQ(table.stringOf(-1), JXString());
  EXPECT_EQ(table.stringOf(INT_MAX), JXString());
  EXPECT_EQ(table.stringOf(INT_MIN), JXString());
  EXPECT_EQ(JXEnumStrings().stringOf(0), JXString());
  EXPECT_TRUE(JXEnumStrings().allStrings().empty());
}

TEST(JXFieldTable, StringFieldAcceptsStringOrNull) {
  const auto event = JXPurchaseEvent::init();
  EXPECT_EQ(set(*event, "coupon", R"("SPRING")"), "");
  EXPECT_EQ(event->coupon(), JXString("SPRING"));
  for (const char* wrong : {"1", "true", "{}", "[]"})
    EXPECT_EQ(set(*event, "coupon", wrong), "must be a string") << wrong;
  EXPECT_EQ(event->coupon(), JXString("SPRING"));
  EXPECT_EQ(set(*event, "coupon", R"("")"), "");
  EXPECT_EQ(event->coupon(), JXString(""));
  EXPECT_EQ(set(*event, "coupon", "null"), "");
  EXPECT_EQ(event->coupon(), JXString());
}

TEST(JXFieldTable, NumberFieldAcceptsNumberNumericStringOrNull) {
  const auto event = JXPurchaseEvent::init();
  EXPECT_EQ(set(*event, "revenue", "12.50"), "");
  ASSERT_TRUE(event->revenue().has_value());
  EXPECT_EQ(event->revenue()->toString(), "12.50");
  EXPECT_EQ(set(*event, "revenue", R"("1.5e3")"), "");
  EXPECT_EQ(event->revenue()->toString(), "1500");
  for (const char* wrong : {R"("a lot")", R"("")", "true", "[1]", "{}"})
    EXPECT_EQ(set(*event, "revenue", wrong), "must be a decimal number") << wrong;
  EXPECT_EQ(event->revenue()->toString(), "1500");
  EXPECT_EQ(set(*event, "revenue", "null"), "");
  EXPECT_EQ(event->revenue(), std::nullopt);
}

TEST(JXFieldTable, BooleanFieldAcceptsOnlyTrueOrFalse) {
  const auto event =
      JXVideoPlaybackEvent::initWithMode_andSessionId(EJXVideoPlaybackMode_START, "");
  EXPECT_EQ(set(*event, "fullScreen", "true"), "");
  EXPECT_TRUE(event->fullScreen());
  for (const char* wrong : {"null", "1", R"("true")", "[]", "{}"})
    EXPECT_EQ(set(*event, "fullScreen", wrong), "must be true or false") << wrong;
  EXPECT_TRUE(event->fullScreen());
}

TEST(JXFieldTable, StringsFieldAcceptsStringsAndNulls) {
  const auto product = JXProduct::init();
  EXPECT_EQ(set(*product, "colors", R"(["red",null,""])"), "");
  EXPECT_EQ(product->colors().size(), 3u);
  EXPECT_EQ(product->colors()[1], JXString());
  EXPECT_EQ(set(*product, "colors", R"(["red",1])"), "must contain only strings");
  EXPECT_EQ(set(*product, "colors", R"("red")"), "must be an array");
  EXPECT_EQ(product->colors().size(), 3u);
  EXPECT_EQ(set(*product, "colors", "null"), "");
  EXPECT_FALSE(product->colors().isPresent());
}

TEST(JXFieldTable, NumberedStringsFieldAcceptsAnArray) {
  const auto product = JXProduct::init();
  EXPECT_EQ(set(*product, "categories", R"(["a","b"])"), "");
  EXPECT_EQ(jsonText(product->getJsonObject()),
            R"({"category_1":"a","category_2":"b","colors":[]})");
  EXPECT_EQ(set(*product, "categories", "{}"), "must be an array");
}

TEST(JXFieldTable, ValuesFieldAcceptsAnyArrayOrNull) {
  const auto event =
      JXVideoContentEvent::initWithMode_andSessionId(EJXVideoContentMode_START, "s-1");
  EXPECT_EQ(set(*event, "keywords", R"(["a",1.50,null,{"b":[true]}])"), "");
  EXPECT_EQ(event->keywords().size(), 4u);
  EXPECT_EQ(event->keywords().at(1).numberString(), JXString("1.50"));
  EXPECT_EQ(set(*event, "keywords", R"("a")"), "must be an array");
  EXPECT_EQ(event->keywords().size(), 4u);
  EXPECT_EQ(set(*event, "keywords", "null"), "");
  EXPECT_FALSE(event->keywords().isPresent());
}

TEST(JXFieldTable, EnumerationFieldAcceptsOnlyEnumeratorNames) {
  const auto event = JXVideoAdEvent::initWithMode_andSessionId(EJXVideoAdMode_START, "s-1");
  EXPECT_EQ(set(*event, "adType", R"("MID_ROLL")"), "");
  EXPECT_EQ(event->adType(), EJXAdType_MID_ROLL);
  for (const char* wrong : {R"("mid-roll")", R"("EJXAdType_PRE_ROLL")", R"("")", "0", "null"})
    EXPECT_EQ(set(*event, "adType", wrong), "must be one of the enumeration's names") << wrong;
  EXPECT_EQ(event->adType(), EJXAdType_MID_ROLL);
  EXPECT_EQ(set(*event, "loadType", R"("LINEAR")"), "");
  EXPECT_EQ(event->loadType(), EJXAdLoadType_LINEAR);
}

TEST(JXFieldTable, ItemsFieldAcceptsItemsWithProductsAndParameters) {
  const auto event = JXPurchaseEvent::init();
  EXPECT_EQ(set(*event, "items", R"([{"ID":"1","quantity":6,"product":{"ID":"85123A",
      "name":"LANTERN","price":"3.39","categories":["home"],"parameters":{"new":null}},
      "parameters":{"gift":true,"weight":1.50}},null,{"product":null},{}])"),
            "");
  ASSERT_EQ(event->items().size(), 4u);
  EXPECT_EQ(jsonText(event->items()[0]->getJsonObject()),
            R"({"gift":true,"weight":1.50,"id":"1","quantity":6,"product":{"new":null,)"
            R"("id":"85123A","name":"LANTERN","price":3.39,"category_1":"home","colors":[]}})");
  EXPECT_EQ(event->items()[1], nullptr);
  EXPECT_EQ(event->items()[2]->product(), nullptr);
  EXPECT_NE(event->items()[3]->product(), nullptr);
  EXPECT_EQ(set(*event, "items", "null"), "");
  EXPECT_FALSE(event->items().isPresent());
}

TEST(JXFieldTable, ItemsFieldReportsErrorsAndStaysUnchanged) {
  const auto event = JXPurchaseEvent::
      initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
          "1", 1, 1, "GBP", "t", "card", "pending", {lampItem()});
  EXPECT_EQ(set(*event, "items", "{}"), "must be an array");
  EXPECT_EQ(set(*event, "items", R"(["1"])"), "must contain only items");
  EXPECT_EQ(set(*event, "items", R"([{"id":"1"}])"), "contains an invalid item: id is not a field");
  EXPECT_EQ(set(*event, "items", R"([{"quantity":"six"}])"),
            "contains an invalid item: quantity must be a decimal number");
  EXPECT_EQ(set(*event, "items", R"([{"parameters":[]}])"),
            "contains an invalid item: parameters must be an object");
  EXPECT_EQ(set(*event, "items", R"([{"product":"p"}])"),
            "contains an invalid item: product must be an object");
  EXPECT_EQ(set(*event, "items", R"([{"product":{"price":true}}])"),
            "contains an invalid item: product is invalid: price must be a decimal number");
  EXPECT_EQ(event->items().size(), 1u);
}

TEST(JXFieldTable, SetsInheritedAndUnwrittenProperties) {
  const auto playback =
      JXVideoPlaybackEvent::initWithMode_andSessionId(EJXVideoPlaybackMode_START, nullptr);
  EXPECT_EQ(set(*playback, "videoSessionID", R"("s-1")"), "");
  EXPECT_EQ(playback->videoSessionID(), JXString("s-1"));
  EXPECT_EQ(set(*playback, "name", R"("other")"), "");
  EXPECT_EQ(playback->name(), JXString("other"));
  const auto shopping = JXECommerceEvent::init();
  EXPECT_EQ(set(*shopping, "currency", R"("GBP")"), "");
  EXPECT_EQ(shopping->currency(), JXString("GBP"));
  EXPECT_EQ(set(*shopping, "items", "[{}]"), "");
  EXPECT_EQ(shopping->items().size(), 1u);
}

TEST(JXFieldTable, RejectsAnUnknownProperty) {
  EXPECT_EQ(set(*JXPurchaseEvent::init(), "payment_method", R"("card")"),
            "is not a field of JXPurchaseEvent");
  EXPECT_EQ(set(*JXEvent::init(), "currency", R"("GBP")"), "is not a field of JXEvent");
}

}  // namespace
}  // namespace jx::test
