// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXViewItemListEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXViewItemListEvent, WritesAllFieldsInOrder) {
  const auto event = JXViewItemListEvent::initWithItems({lampItem()});
  event->setPageName("P");
  event->setPageType("t");
  event->setItemListName("Lamps");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"view_item_list","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"item_list_name":"Lamps","items":[)") +
                kLampJson + "]}");
}

TEST(JXViewItemListEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXViewItemListEvent::init()),
            R"({"event_name":"view_item_list","context":{"event_id":"E"},"items":[]})");
}

TEST(JXViewItemListEvent, RequiresAnItem) {
  expectRules<JXViewItemListEvent>(
      [] { return JXViewItemListEvent::initWithItems({lampItem()}); },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXViewItemListEvent, StartsWithAnEmptyListAndIsValidWithOneItem) {
  const auto event = JXViewItemListEvent::init();
  EXPECT_TRUE(event->items().isPresent());
  EXPECT_EQ(event->items().size(), 0u);
  EXPECT_FALSE(event->verifyEvent());
  event->items().append(lampItem());
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXViewItemListEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXViewItemListEvent::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

}  // namespace
}  // namespace jx::test
