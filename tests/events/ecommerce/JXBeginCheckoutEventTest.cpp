// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXBeginCheckoutEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXBeginCheckoutEvent> validCheckout() {
  return JXBeginCheckoutEvent::initWithRevenue_withValue_withCurrency_withItems(
      decimal("20.10"), decimal("25.00"), "GBP", {lampItem()});
}

TEST(JXBeginCheckoutEvent, WritesAllFieldsInOrder) {
  const auto event = validCheckout();
  event->setPageName("P");
  event->setPageType("t");
  event->setCoupon("SPRING");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"begin_checkout","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"value":25.00,"revenue":20.10,)"
                        R"("currency":"GBP","coupon":"SPRING","items":[)") +
                kLampJson + "]}");
}

TEST(JXBeginCheckoutEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXBeginCheckoutEvent::init()),
            R"({"event_name":"begin_checkout","context":{"event_id":"E"},"items":[]})");
}

TEST(JXBeginCheckoutEvent, RequiresACurrencyAnItemAValueAndARevenue) {
  expectRules<JXBeginCheckoutEvent>(
      validCheckout,
      {{"currency must be a non-empty string", [](auto& event) { event.setCurrency(""); }},
       {"items must contain at least one element", [](auto& event) { event.setItems({}); }},
       {"value must be set", [](auto& event) { event.setValue(std::nullopt); }},
       {"revenue must be set", [](auto& event) { event.setRevenue(std::nullopt); }}});
}

TEST(JXBeginCheckoutEvent, ReportsTheMissingCurrencyBeforeTheItems) {
  EXPECT_EQ(JXBeginCheckoutEvent::init()->firstFailedCondition(),
            JXString("currency must be a non-empty string"));
}

TEST(JXBeginCheckoutEvent, AcceptsAmountsOfZero) {
  const auto event = validCheckout();
  event->setValue(0);
  event->setRevenue(0);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXBeginCheckoutEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event =
      JXBeginCheckoutEvent::initWithRevenue_withValue_withCurrency_withItems(1, 1, "GBP", items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
