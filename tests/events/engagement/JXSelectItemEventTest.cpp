// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXSelectItemEvent.h"

#include <gtest/gtest.h>

#include "jx/events/engagement/JXViewItemListEvent.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXSelectItemEvent, WritesAllFieldsInOrder) {
  const auto event = JXSelectItemEvent::initWithItems({lampItem()});
  event->setPageName("P");
  event->setPageType("t");
  event->setItemListName("Lamps");
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"select_item","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"item_list_name":"Lamps","items":[)") +
                kLampJson + "]}");
}

TEST(JXSelectItemEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXSelectItemEvent::init()),
            R"({"event_name":"select_item","context":{"event_id":"E"},"items":[]})");
}

TEST(JXSelectItemEvent, RequiresAnItem) {
  expectRules<JXSelectItemEvent>(
      [] { return JXSelectItemEvent::initWithItems({lampItem()}); },
      {{"items must contain at least one element", [](auto& event) { event.setItems({}); }}});
}

TEST(JXSelectItemEvent, StartsWithAnEmptyListAndIsValidWithOneItem) {
  const auto event = JXSelectItemEvent::init();
  EXPECT_TRUE(event->items().isPresent());
  EXPECT_EQ(event->items().size(), 0u);
  EXPECT_FALSE(event->verifyEvent());
  event->items().append(lampItem());
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXSelectItemEvent, DoesNotStoreTheCallersList) {
  const JXList<std::shared_ptr<JXItem>> items{lampItem()};
  const auto event = JXSelectItemEvent::initWithItems(items);
  items.append(lampItem());
  EXPECT_EQ(event->items().size(), 1u);
}

TEST(JXSelectItemEvent, DiffersFromJXViewItemListEventOnlyInItsName) {
  const auto selected = JXSelectItemEvent::initWithItems({lampItem()});
  selected->setItemListName("Lamps");
  const auto viewed = JXViewItemListEvent::initWithItems({lampItem()});
  viewed->setItemListName("Lamps");
  viewed->setName("select_item");
  EXPECT_EQ(eventJson(*selected), eventJson(*viewed));
}

}  // namespace
}  // namespace jx::test
