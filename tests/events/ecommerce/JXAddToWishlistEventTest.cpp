// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXAddToWishlistEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXAddToWishlistEvent, WritesAllFieldsInOrder) {
  const auto event = JXAddToWishlistEvent::initWithItems({lampItem()});
  event->setPageName("P");
  event->setPageType("t");
  event->setCurrency("GBP");
  event->setValue(decimal("25.00"));
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"add_to_wishlist","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"value":25.00,"currency":"GBP","items":[)") +
                kLampJson + "]}");
}

TEST(JXAddToWishlistEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXAddToWishlistEvent::init()),
            R"({"event_name":"add_to_wishlist","context":{"event_id":"E"},"items":[]})");
}

TEST(JXAddToWishlistEvent, RequiresOnlyAnItem) {
  expectRules<JXAddToWishlistEvent>(
      [] { return JXAddToWishlistEvent::initWithItems({lampItem()}); },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXAddToWishlistEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXAddToWishlistEvent::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
  EXPECT_EQ(items.size(), 2u);
}

}  // namespace
}  // namespace jx::test
