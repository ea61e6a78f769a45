// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXAddToCartEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXAddToCartEvent> validAddToCart() {
  return JXAddToCartEvent::initWithValue_withCurrency_withItems(decimal("25.00"), "GBP",
                                                                {lampItem()});
}

TEST(JXAddToCartEvent, WritesAllFieldsInOrder) {
  const auto event = validAddToCart();
  event->setPageName("P");
  event->setPageType("t");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"add_to_cart","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"currency":"GBP","value":25.00,"items":[)") +
                kLampJson + "]}");
}

TEST(JXAddToCartEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXAddToCartEvent::init()),
            R"({"event_name":"add_to_cart","context":{"event_id":"E"},"items":[]})");
}

TEST(JXAddToCartEvent, RequiresAnItemAValueAndACurrency) {
  expectRules<JXAddToCartEvent>(
      validAddToCart,
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }},
       {"value must be set", [](auto& event) { event.setValue(std::nullopt); }},
       {"currency must be a non-empty string", [](auto& event) { event.setCurrency(""); }}});
}

TEST(JXAddToCartEvent, AcceptsAValueOfZero) {
  const auto event = validAddToCart();
  event->setValue(0);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXAddToCartEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto byItems = JXAddToCartEvent::initWithItems(items);
  const auto byValue = JXAddToCartEvent::initWithValue_withCurrency_withItems(1, "GBP", items);
  items.append(lampItem());
  EXPECT_EQ(byItems->items().size(), 1u);
  EXPECT_EQ(byItems->name(), JXString("add_to_cart"));
  EXPECT_EQ(byValue->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
