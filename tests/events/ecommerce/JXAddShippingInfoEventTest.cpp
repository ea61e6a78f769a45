// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXAddShippingInfoEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXAddShippingInfoEvent> validShipping() {
  return JXAddShippingInfoEvent::initWithItems_withValue_withCurrency({lampItem()},
                                                                      decimal("25.00"), "GBP");
}

TEST(JXAddShippingInfoEvent, WritesAllFieldsInOrder) {
  const auto event = validShipping();
  event->setPageName("P");
  event->setPageType("t");
  event->setCoupon("SPRING");
  event->setShippingTier("next day");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"add_shipping_info","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"currency":"GBP","value":25.00,)"
                        R"("coupon":"SPRING","shipping_tier":"next day","items":[)") +
                kLampJson + "]}");
}

TEST(JXAddShippingInfoEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXAddShippingInfoEvent::init()),
            R"({"event_name":"add_shipping_info","context":{"event_id":"E"},"items":[]})");
}

TEST(JXAddShippingInfoEvent, RequiresAnItemAValueAndACurrency) {
  expectRules<JXAddShippingInfoEvent>(
      validShipping,
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }},
       {"value must be set", [](auto& event) { event.setValue(std::nullopt); }},
       {"currency must be a non-empty string", [](auto& event) { event.setCurrency(""); }}});
}

TEST(JXAddShippingInfoEvent, AcceptsAValueOfZero) {
  const auto event = validShipping();
  event->setValue(0);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXAddShippingInfoEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXAddShippingInfoEvent::initWithItems_withValue_withCurrency(items, 1, "GBP");
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
