// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSelectItemEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "select_item";

}  // namespace

JXSelectItemEvent::JXSelectItemEvent(InitKey) { setName(kName); }

std::shared_ptr<JXSelectItemEvent> JXSelectItemEvent::init() { return make<JXSelectItemEvent>(); }

std::shared_ptr<JXSelectItemEvent> JXSelectItemEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXSelectItemEvent> event = make<JXSelectItemEvent>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXSelectItemEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXSelectItemEvent>(
      JXEvent::eventClass(), "JXSelectItemEvent", {kName},
      {
          {JXE_ITEMLISTNAME, "itemListName", &JXSelectItemEvent::itemListName_},
          {JXE_ITEMS, "items", &JXSelectItemEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
      });
  return type;
}

}  // namespace jx
