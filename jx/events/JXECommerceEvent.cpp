// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXECommerceEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {

std::shared_ptr<JXECommerceEvent> JXECommerceEvent::init() {
  return std::shared_ptr<JXECommerceEvent>(new JXECommerceEvent());
}

const JXEventClass& JXECommerceEvent::eventClass() {
  static const auto& written = *new JXFields<JXECommerceEvent>{};
  static const auto& unwritten = *new JXFields<JXECommerceEvent>{
      {JXE_CURRENCY, "currency", &JXECommerceEvent::currency_},
      {JXE_ITEMS, "items", &JXECommerceEvent::items_},
  };
  static const auto& type = *new JXEventClass{"JXECommerceEvent",
                                              &JXEvent::eventClass(),
                                              {},
                                              &written,
                                              {},
                                              createByInit<JXECommerceEvent>,
                                              {},
                                              &unwritten};
  return type;
}

}  // namespace jx
