// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXRemoveFromCartEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "remove_from_cart";

}  // namespace

JXRemoveFromCartEvent::JXRemoveFromCartEvent(InitKey) { setName(kName); }

std::shared_ptr<JXRemoveFromCartEvent> JXRemoveFromCartEvent::init() {
  return make<JXRemoveFromCartEvent>();
}

std::shared_ptr<JXRemoveFromCartEvent> JXRemoveFromCartEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXRemoveFromCartEvent> event = make<JXRemoveFromCartEvent>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXRemoveFromCartEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXRemoveFromCartEvent>(
      JXECommerceEvent::eventClass(), "JXRemoveFromCartEvent", {kName},
      {
          {JXE_VALUE, "value", &JXRemoveFromCartEvent::value_},
          {JXE_CURRENCY, "currency", &JXRemoveFromCartEvent::currency_},
          {JXE_ITEMS, "items", &JXRemoveFromCartEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
      });
  return type;
}

}  // namespace jx
