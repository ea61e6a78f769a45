// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXAddShippingInfoEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXAddShippingInfoEvent> completeShipping() {
  return JXAddShippingInfoEvent::initWithItems_withValue_withCurrency({lampItem()},
                                                                      decimal("25.00"), "GBP");
}

TEST(JXAddShippingInfoEvent, WithEveryFieldSetWritesThemAllInOrder) {
  const auto event = completeShipping();
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

TEST(JXAddShippingInfoEvent, WithNothingSetWritesItsNameAndNoItems) {
  EXPECT_EQ(eventJson(*JXAddShippingInfoEvent::init()),
            R"({"event_name":"add_shipping_info","context":{"event_id":"E"},"items":[]})");
}

TEST(JXAddShippingInfoEvent, NeedsAnItemAValueAndACurrency) {
  expectRules<JXAddShippingInfoEvent>(
      completeShipping,
      {{"items holds no entry", [](auto& event) { event.setItems({}); }},
       {"value is absent", [](auto& event) { event.setValue(std::nullopt); }},
       {"currency is absent or empty", [](auto& event) { event.setCurrency(""); }}});
}

TEST(JXAddShippingInfoEvent, CountsAValueOfZeroAsPresent) {
  const auto event = completeShipping();
  event->setValue(0);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXAddShippingInfoEvent, DoesNotKeepTheListThatItWasGiven) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXAddShippingInfoEvent::initWithItems_withValue_withCurrency(items, 1, "GBP");
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
