// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#include "jx/events/JXECommerceEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {

std::shared_ptr<JXECommerceEvent> JXECommerceEvent::init() { return make<JXECommerceEvent>(); }

const JXEventClass& JXECommerceEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXECommerceEvent>(
      JXEvent::eventClass(), "JXECommerceEvent", {}, {}, {}, createByInit<JXECommerceEvent>, {},
      {
          {JXE_CURRENCY, "currency", &JXECommerceEvent::currency_},
          {JXE_ITEMS, "items", &JXECommerceEvent::items_},
      });
  return type;
}

}  // namespace jx
