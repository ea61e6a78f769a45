// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXViewCartEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "view_cart";

}  // namespace

JXViewCartEvent::JXViewCartEvent(InitKey) { setName(kName); }

std::shared_ptr<JXViewCartEvent> JXViewCartEvent::init() { return make<JXViewCartEvent>(); }

std::shared_ptr<JXViewCartEvent> JXViewCartEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXViewCartEvent> event = make<JXViewCartEvent>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXViewCartEvent::eventClass() {
  static const auto& type =
      JXEventClass::of<JXViewCartEvent>(JXECommerceEvent::eventClass(), "JXViewCartEvent", {kName},
                                        {
                                            {JXE_CURRENCY, "currency", &JXViewCartEvent::currency_},
                                            {JXE_VALUE, "value", &JXViewCartEvent::value_},
                                            {JXE_ITEMS, "items", &JXViewCartEvent::items_},
                                        },
                                        {
                                            nonEmptyList(JXE_ITEMS),
                                        });
  return type;
}

}  // namespace jx
