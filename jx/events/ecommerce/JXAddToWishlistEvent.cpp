// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXAddToWishlistEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "add_to_wishlist";

}  // namespace

JXAddToWishlistEvent::JXAddToWishlistEvent(InitKey) { setName(kName); }

std::shared_ptr<JXAddToWishlistEvent> JXAddToWishlistEvent::init() {
  return make<JXAddToWishlistEvent>();
}

std::shared_ptr<JXAddToWishlistEvent> JXAddToWishlistEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXAddToWishlistEvent> event = make<JXAddToWishlistEvent>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXAddToWishlistEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXAddToWishlistEvent>(
      JXECommerceEvent::eventClass(), "JXAddToWishlistEvent", {kName},
      {
          {JXE_VALUE, "value", &JXAddToWishlistEvent::value_},
          {JXE_CURRENCY, "currency", &JXAddToWishlistEvent::currency_},
          {JXE_ITEMS, "items", &JXAddToWishlistEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
      });
  return type;
}

}  // namespace jx
