// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXPurchaseEvent.h"

#include <gtest/gtest.h>

#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXPurchaseEvent> validPurchase() {
  return JXPurchaseEvent::
      initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
          "536365", decimal("139.12"), decimal("150.00"), "GBP", "online", EJXPayementMethod_CARD,
          EJXPurchaseStatus_PENDING, {lampItem()});
}

TEST(JXPurchaseEvent, WritesAllFieldsInOrder) {
  const auto event = validPurchase();
  event->setPageName("Thanks");
  event->setPageType("receipt");
  event->setShippingAmount(decimal("4.90"));
  event->setTaxAmount(decimal("23.2"));
  event->setCoupon("SPRING");
  event->setUrl("https://shop.example/536365");
  EXPECT_EQ(
      eventJson(*event),
      std::string(R"({"event_name":"purchase","page_name":"Thanks","page_type":"receipt",)"
                  R"("context":{"event_id":"E"},"currency":"GBP","id":"536365","value":150.00,)"
                  R"("revenue":139.12,"shipping_amount":4.90,"tax_amount":23.2,"coupon":"SPRING",)"
                  R"("type":"online","payment_method":"card","status":"pending",)"
                  R"("url":"https://shop.example/536365","items":[)") +
          kLampJson + "]}");
}

TEST(JXPurchaseEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXPurchaseEvent::init()),
            R"({"event_name":"purchase","context":{"event_id":"E"},"items":[]})");
}

TEST(JXPurchaseEvent, RequiresAnItemAnIDBothAmountsAndFourStrings) {
  expectRules<JXPurchaseEvent>(
      validPurchase,
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }},
       {"ID must be a non-empty string", [](auto& event) { event.setID(""); }},
       {"revenue must be set", [](auto& event) { event.setRevenue(std::nullopt); }},
       {"value must be set", [](auto& event) { event.setValue(std::nullopt); }},
       {"currency must be a non-empty string", [](auto& event) { event.setCurrency(nullptr); }},
       {"type must be a non-empty string", [](auto& event) { event.setType(""); }},
       {"paymentMethod must be a non-empty string",
        [](auto& event) { event.setPaymentMethod(nullptr); }},
       {"status must be a non-empty string", [](auto& event) { event.setStatus(""); }}});
}

TEST(JXPurchaseEvent, ReportsEmptyItemsFirst) {
  const auto event = JXPurchaseEvent::
      initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
          "536365", decimal("139.12"), decimal("150.00"), "GBP", "online", EJXPayementMethod_CARD,
          EJXPurchaseStatus_PENDING, {});
  EXPECT_FALSE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(), JXString("items must contain at least one element"));
}

TEST(JXPurchaseEvent, AcceptsAnyNonEmptyStatusAndPaymentMethod) {
  const auto event = validPurchase();
  event->setStatus("lost at sea");
  event->setPaymentMethod("barter");
  EXPECT_TRUE(event->verifyEvent());
  const JXJsonObject json = event->getJsonObject();
  EXPECT_EQ(json.get("status").string(), JXString("lost at sea"));
  EXPECT_EQ(json.get("payment_method").string(), JXString("barter"));
}

TEST(JXPurchaseEvent, AcceptsZeroAndNegativeAmounts) {
  const auto event = validPurchase();
  event->setRevenue(0);
  event->setValue(-1);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXPurchaseEvent, DoesNotValidateItsItems) {
  const auto event = validPurchase();
  event->setItems({JXItem::init()});
  EXPECT_FALSE(event->items()[0]->verifyItem());
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(event->getJsonObject().get("items").array().size(), 1u);
}

TEST(JXPurchaseEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXPurchaseEvent::
      initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
          "1", 1, 1, "GBP", "t", "card", "pending", items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

TEST(JXPaymentMethods, HaveTheirStrings) {
  EXPECT_EQ(EJXPayementMethod_BY_INVOICE, "by_invoice");
  EXPECT_EQ(EJXPayementMethod_BY_BANK_TRANSFER_IN_A, "by_bank_transfer_in_advance");
  EXPECT_EQ(EJXPayementMethod_CARD, "card");
  EXPECT_EQ(EJXPayementMethod_CHECK_IN_ADVANCE, "check_in_advance");
  EXPECT_EQ(EJXPayementMethod_COD, "cod");
  EXPECT_EQ(EJXPayementMethod_COUPON, "coupon");
  EXPECT_EQ(EJXPayementMethod_DIRECT_DEBIT, "direct_debit");
  EXPECT_EQ(EJXPayementMethod_ONLINE_PAYMENT_SYSTEM, "online_payment_system");
  EXPECT_EQ(EJXPayementMethod_OTHER, "other");
}

TEST(JXPurchaseStatuses, HaveTheirStrings) {
  EXPECT_EQ(EJXPurchaseStatus_CANCELED, "canceled");
  EXPECT_EQ(EJXPurchaseStatus_DELIVERED, "delivered");
  EXPECT_EQ(EJXPurchaseStatus_IN_PROGRESS, "in_progress");
  EXPECT_EQ(EJXPurchaseStatus_PARTIALLY_DELIVERED, "partially_delivered");
  EXPECT_EQ(EJXPurchaseStatus_PARTIALLY_RETURNED, "partially_returned");
  EXPECT_EQ(EJXPurchaseStatus_PARTIALLY_SHIPPED, "partially_shipped");
  EXPECT_EQ(EJXPurchaseStatus_PENDING_SHIPMENT, "pending_shipment");
  EXPECT_EQ(EJXPurchaseStatus_RETURNED, "returned");
  EXPECT_EQ(EJXPurchaseStatus_SHIPPE, "shipped");
  EXPECT_EQ(EJXPurchaseStatus_PENDING, "pending");
}

}  // namespace
}  // namespace jx::test
