// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXRefundEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXRefundEvent, WritesAllFieldsInOrder) {
  const auto event =
      JXRefundEvent::initWithID_withRevenue_withValue_withCurrency_withType_withItems(
          "R1", decimal("10.50"), decimal("12"), "EUR", "partial", {lampItem()});
  event->setPageName("Refund");
  event->setPageType("account");
  event->setShippingAmount(decimal("0.00"));
  event->setTaxAmount(decimal("1.95"));
  event->setCoupon("SORRY");
  event->setUrl("https://shop.example/r1");
  EXPECT_EQ(
      eventJson(*event),
      std::string(R"({"event_name":"refund","page_name":"Refund","page_type":"account",)"
                  R"("context":{"event_id":"E"},"currency":"EUR","value":12,"id":"R1",)"
                  R"("revenue":10.50,"shipping_amount":0.00,"tax_amount":1.95,"type":"partial",)"
                  R"("url":"https://shop.example/r1","coupon":"SORRY","items":[)") +
          kLampJson + "]}");
}

TEST(JXRefundEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXRefundEvent::init()),
            R"({"event_name":"refund","context":{"event_id":"E"},"items":[]})");
}

TEST(JXRefundEvent, RequiresOnlyAnItem) {
  expectRules<JXRefundEvent>(
      [] {
        const auto event = JXRefundEvent::init();
        event->items().append(lampItem());
        return event;
      },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXRefundEvent, IsInvalidUntilAnItemIsAdded) {
  const auto event = JXRefundEvent::initWithID_withRevenue_withValue_withCurrency_withType(
      "R1", decimal("10.50"), decimal("12"), "EUR", "partial");
  EXPECT_FALSE(event->verifyEvent());
  event->items().append(lampItem());
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(event->name(), JXString("refund"));
  EXPECT_EQ(event->ID(), JXString("R1"));
  EXPECT_EQ(event->revenue(), decimal("10.50"));
  EXPECT_EQ(event->value(), decimal("12"));
  EXPECT_EQ(event->currency(), JXString("EUR"));
  EXPECT_EQ(event->type(), JXString("partial"));
}

TEST(JXRefundEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event =
      JXRefundEvent::initWithID_withRevenue_withValue_withCurrency_withType_withItems(
          "R1", 1, 1, "EUR", "t", items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
