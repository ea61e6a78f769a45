// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXViewItemListEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "view_item_list";

}  // namespace

JXViewItemListEvent::JXViewItemListEvent(InitKey) { setName(kName); }

std::shared_ptr<JXViewItemListEvent> JXViewItemListEvent::init() {
  return make<JXViewItemListEvent>();
}

std::shared_ptr<JXViewItemListEvent> JXViewItemListEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXViewItemListEvent> event = make<JXViewItemListEvent>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXViewItemListEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXViewItemListEvent>(
      JXEvent::eventClass(), "JXViewItemListEvent", {kName},
      {
          {JXE_ITEMLISTNAME, "itemListName", &JXViewItemListEvent::itemListName_},
          {JXE_ITEMS, "items", &JXViewItemListEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
      });
  return type;
}

}  // namespace jx
