// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXAddShippingInfoEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "add_shipping_info";

}  // namespace

JXAddShippingInfoEvent::JXAddShippingInfoEvent(InitKey) { setName(kName); }

std::shared_ptr<JXAddShippingInfoEvent> JXAddShippingInfoEvent::init() {
  return make<JXAddShippingInfoEvent>();
}

std::shared_ptr<JXAddShippingInfoEvent>
JXAddShippingInfoEvent::initWithItems_withValue_withCurrency(
    const JXList<std::shared_ptr<JXItem>>& items, const std::optional<JXDecimal>& value,
    const JXString& currency) {
  std::shared_ptr<JXAddShippingInfoEvent> event = make<JXAddShippingInfoEvent>();
  event->items_.appendAll(items);
  event->setValue(value);
  event->setCurrency(currency);
  return event;
}

const JXEventClass& JXAddShippingInfoEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXAddShippingInfoEvent>(
      JXECommerceEvent::eventClass(), "JXAddShippingInfoEvent", {kName},
      {
          {JXE_CURRENCY, "currency", &JXAddShippingInfoEvent::currency_},
          {JXE_VALUE, "value", &JXAddShippingInfoEvent::value_},
          {JXE_COUPON, "coupon", &JXAddShippingInfoEvent::coupon_},
          {JXE_SHIPPINGTIER, "shippingTier", &JXAddShippingInfoEvent::shippingTier_},
          {JXE_ITEMS, "items", &JXAddShippingInfoEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
          present(JXE_VALUE),
          nonEmptyString(JXE_CURRENCY),
      });
  return type;
}

}  // namespace jx
