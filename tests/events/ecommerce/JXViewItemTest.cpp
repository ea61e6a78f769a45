// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXViewItem.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

std::shared_ptr<JXViewItem> validViewItem() {
  const auto event = JXViewItem::initWithItems({lampItem()});
  event->setRevenue(decimal("12.50"));
  event->setCurrency("GBP");
  return event;
}

TEST(JXViewItem, WritesAllFieldsInOrder) {
  const auto event = validViewItem();
  event->setPageName("P");
  event->setPageType("t");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"view_item","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"currency":"GBP","revenue":12.50,)"
                        R"("items":[)") +
                kLampJson + "]}");
}

TEST(JXViewItem, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXViewItem::init()),
            R"({"event_name":"view_item","context":{"event_id":"E"},"items":[]})");
}

TEST(JXViewItem, RequiresAnItemARevenueAndACurrency) {
  expectRules<JXViewItem>(
      validViewItem,
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }},
       {"revenue must be set", [](auto& event) { event.setRevenue(std::nullopt); }},
       {"currency must be a non-empty string", [](auto& event) { event.setCurrency(""); }}});
}

TEST(JXViewItem, AcceptsARevenueOfZero) {
  const auto event = validViewItem();
  event->setRevenue(0);
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXViewItem, WritesARevenueAndNeverAValue) {
  const JXJsonObject json = validViewItem()->getJsonObject();
  EXPECT_TRUE(json.contains("revenue"));
  EXPECT_FALSE(json.contains("value"));
  EXPECT_EQ(JXViewItem::eventClass().fieldOfKey("value"), nullptr);
}

TEST(JXViewItem, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXViewItem::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
