// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXViewCartEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXViewCartEvent, WritesAllFieldsInOrder) {
  const auto event = JXViewCartEvent::initWithItems({lampItem()});
  event->setPageName("P");
  event->setPageType("t");
  event->setCurrency("GBP");
  event->setValue(decimal("25.00"));
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"view_cart","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"currency":"GBP","value":25.00,"items":[)") +
                kLampJson + "]}");
}

TEST(JXViewCartEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXViewCartEvent::init()),
            R"({"event_name":"view_cart","context":{"event_id":"E"},"items":[]})");
}

TEST(JXViewCartEvent, RequiresOnlyAnItem) {
  expectRules<JXViewCartEvent>(
      [] { return JXViewCartEvent::initWithItems({lampItem()}); },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXViewCartEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXViewCartEvent::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
  EXPECT_EQ(items.size(), 2u);
}

}  // namespace
}  // namespace jx::test
