// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "jx/core/json/JXJsonReader.h"
#include "jx/events/ecommerce/JXAddToCartEvent.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/engagement/JXSelectItemEvent.h"
#include "tests/core/storage/JXLogLines.h"
#include "tests/support/JXEventTestTools.h"

// Invalid input to events has defined results: no crash and always valid JSON.
namespace jx::test {
namespace {

TEST(JXBadInput, OmitsAnAmountFromAnInvalidNumberString) {
  const auto event = JXViewCartEvent::init();
  event->setValue(JXDecimal::fromString("a lot"));
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"view_cart","context":{"event_id":"E"},"items":[]})");
}

TEST(JXBadInput, TreatsANaNAmountAsNotSet) {
  const auto event =
      JXAddToCartEvent::initWithValue_withCurrency_withItems(12, "GBP", {lampItem()});
  EXPECT_TRUE(event->verifyEvent());
  event->setValue(JXDecimal::nan());
  EXPECT_EQ(event->firstFailedCondition(), JXString("value must be set"));
  const auto item = lampItem();
  item->setQuantity(JXDecimal::nan());
  EXPECT_FALSE(item->verifyItem());
  const auto product = lampItem()->product();
  product->setPrice(JXDecimal::nan());
  EXPECT_FALSE(product->verifyProduct());
}

TEST(JXBadInput, SkipsANullItemWithALogMessage) {
  eventPlatform();
  LogLines log;
  const auto event = JXViewCartEvent::initWithItems({nullptr, lampItem(), nullptr});
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"view_cart","context":{"event_id":"E"},"items":[)") +
                kLampJson + "]}");
  EXPECT_EQ(log.with("3 List element is null; skipped"), 2u);
}

TEST(JXBadInput, WritesANullItemListAsAnEmptyArray) {
  const auto cart = JXViewCartEvent::init();
  cart->setItems(nullptr);
  cart->items().append(lampItem());
  EXPECT_FALSE(cart->verifyEvent());
  EXPECT_EQ(eventJson(*cart),
            R"({"event_name":"view_cart","context":{"event_id":"E"},"items":[]})");
  const auto list = JXSelectItemEvent::initWithItems(nullptr);
  EXPECT_FALSE(list->verifyEvent());
  EXPECT_EQ(eventJson(*list),
            R"({"event_name":"select_item","context":{"event_id":"E"},"items":[]})");
}

TEST(JXBadInput, OmitsTheCycleOfAProductThatContainsItself) {
  const auto item = lampItem();
  JXJsonObject cycle;
  cycle.set("a", 1);
  cycle.set("self", cycle);
  item->product()->addAdditionalProperty_withDictValue("extra", cycle);
  const auto event = JXViewCartEvent::initWithItems({item});
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"view_cart","context":{"event_id":"E"},"items":[{"id":"1",)"
            R"("quantity":2,"product":{"extra":{"a":1},"id":"L7","name":"Lamp",)"
            R"("price":12.50,"colors":[]}}]})");
  cycle.clear();
}

TEST(JXBadInput, OmitsTheCycleOfAnEventThatContainsItsProperties) {
  eventPlatform();
  const auto event = JXViewCartEvent::init();
  JXJsonObject own = event->getAdditionalProperties();
  event->addAdditionalParameter_forJsonDict("me", own);
  EXPECT_EQ(eventJson(*event),
            R"({"me":{},"event_name":"view_cart","context":{"event_id":"E"},"items":[]})");
  own.clear();
}

TEST(JXBadInput, WritesTheSameItemTwice) {
  const auto item = lampItem();
  const auto event = JXViewCartEvent::initWithItems({item, item});
  EXPECT_EQ(event->getJsonObject().get("items").array().size(), 2u);
}

TEST(JXBadInput, WritesValidJsonForInvalidUtf8) {
  eventPlatform();
  const auto event = JXViewCartEvent::init();
  event->setCurrency("\xff\xfe");
  event->addAdditionalParameter_withValue("\xc3", std::string_view("a\0b", 3));
  const std::string text = eventJson(*event);
  EXPECT_TRUE(JXJsonReader::read(text).value.isPresent()) << text;
}

TEST(JXBadInput, IgnoresANullKeyOrValueOfAParameter) {
  const auto event = JXViewCartEvent::init();
  event->addAdditionalParameter_withValue(nullptr, "v");
  event->addAdditionalParameter_withValue("k", nullptr);
  event->addAdditionalParameter_forJsonDict("k", nullptr);
  event->addAdditionalParameter(JXJsonObject(nullptr));
  EXPECT_EQ(event->getAdditionalProperties().size(), 0u);
}

}  // namespace
}  // namespace jx::test
