// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXAddToCartEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "add_to_cart";

}  // namespace

JXAddToCartEvent::JXAddToCartEvent(InitKey) { setName(kName); }

std::shared_ptr<JXAddToCartEvent> JXAddToCartEvent::init() { return make<JXAddToCartEvent>(); }

std::shared_ptr<JXAddToCartEvent> JXAddToCartEvent::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXAddToCartEvent> event = make<JXAddToCartEvent>();
  event->items_.appendAll(items);
  return event;
}

std::shared_ptr<JXAddToCartEvent> JXAddToCartEvent::initWithValue_withCurrency_withItems(
    const std::optional<JXDecimal>& value, const JXString& currency,
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXAddToCartEvent> event = make<JXAddToCartEvent>();
  event->setValue(value);
  event->setCurrency(currency);
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXAddToCartEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXAddToCartEvent>(
      JXECommerceEvent::eventClass(), "JXAddToCartEvent", {kName},
      {
          {JXE_CURRENCY, "currency", &JXAddToCartEvent::currency_},
          {JXE_VALUE, "value", &JXAddToCartEvent::value_},
          {JXE_ITEMS, "items", &JXAddToCartEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
          present(JXE_VALUE),
          nonEmptyString(JXE_CURRENCY),
      });
  return type;
}

}  // namespace jx
