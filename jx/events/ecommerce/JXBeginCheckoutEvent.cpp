// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXBeginCheckoutEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "begin_checkout";

}  // namespace

JXBeginCheckoutEvent::JXBeginCheckoutEvent(InitKey) { setName(kName); }

std::shared_ptr<JXBeginCheckoutEvent> JXBeginCheckoutEvent::init() {
  return make<JXBeginCheckoutEvent>();
}

std::shared_ptr<JXBeginCheckoutEvent>
JXBeginCheckoutEvent::initWithRevenue_withValue_withCurrency_withItems(
    const std::optional<JXDecimal>& revenue, const std::optional<JXDecimal>& value,
    const JXString& currency, const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXBeginCheckoutEvent> event = make<JXBeginCheckoutEvent>();
  event->setRevenue(revenue);
  event->setValue(value);
  event->setCurrency(currency);
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXBeginCheckoutEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXBeginCheckoutEvent>(
      JXECommerceEvent::eventClass(), "JXBeginCheckoutEvent", {kName},
      {
          {JXE_VALUE, "value", &JXBeginCheckoutEvent::value_},
          {JXE_REVENUE, "revenue", &JXBeginCheckoutEvent::revenue_},
          {JXE_CURRENCY, "currency", &JXBeginCheckoutEvent::currency_},
          {JXE_COUPON, "coupon", &JXBeginCheckoutEvent::coupon_},
          {JXE_ITEMS, "items", &JXBeginCheckoutEvent::items_},
      },
      {
          nonEmptyString(JXE_CURRENCY),
          nonEmptyList(JXE_ITEMS),
          present(JXE_VALUE),
          present(JXE_REVENUE),
      });
  return type;
}

}  // namespace jx
