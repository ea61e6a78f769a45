// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXRemoveFromCartEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXRemoveFromCartEvent, WritesAllFieldsInOrder) {
  const auto event = JXRemoveFromCartEvent::initWithItems({lampItem()});
  event->setPageName("P");
  event->setPageType("t");
  event->setCurrency("GBP");
  event->setValue(decimal("25.00"));
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"remove_from_cart","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"value":25.00,"currency":"GBP","items":[)") +
                kLampJson + "]}");
}

TEST(JXRemoveFromCartEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXRemoveFromCartEvent::init()),
            R"({"event_name":"remove_from_cart","context":{"event_id":"E"},"items":[]})");
}

TEST(JXRemoveFromCartEvent, RequiresOnlyAnItem) {
  expectRules<JXRemoveFromCartEvent>(
      [] { return JXRemoveFromCartEvent::initWithItems({lampItem()}); },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXRemoveFromCartEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXRemoveFromCartEvent::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
  EXPECT_EQ(items.size(), 2u);
}

}  // namespace
}  // namespace jx::test
