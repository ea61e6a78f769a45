// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXRefundEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "refund";

}  // namespace

JXRefundEvent::JXRefundEvent(InitKey) { setName(kName); }

std::shared_ptr<JXRefundEvent> JXRefundEvent::init() { return make<JXRefundEvent>(); }

std::shared_ptr<JXRefundEvent>
JXRefundEvent::initWithID_withRevenue_withValue_withCurrency_withType(
    const JXString& ID, const std::optional<JXDecimal>& revenue,
    const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type) {
  std::shared_ptr<JXRefundEvent> event = make<JXRefundEvent>();
  event->setID(ID);
  event->setRevenue(revenue);
  event->setValue(value);
  event->setCurrency(currency);
  event->setType(type);
  return event;
}

std::shared_ptr<JXRefundEvent>
JXRefundEvent::initWithID_withRevenue_withValue_withCurrency_withType_withItems(
    const JXString& ID, const std::optional<JXDecimal>& revenue,
    const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type,
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXRefundEvent> event = make<JXRefundEvent>();
  event->setID(ID);
  event->setRevenue(revenue);
  event->setValue(value);
  event->setCurrency(currency);
  event->setType(type);
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXRefundEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXRefundEvent>(
      JXECommerceEvent::eventClass(), "JXRefundEvent", {kName},
      {
          {JXE_CURRENCY, "currency", &JXRefundEvent::currency_},
          {JXE_VALUE, "value", &JXRefundEvent::value_},
          {JX_ID, "ID", &JXRefundEvent::ID_},
          {JXE_REVENUE, "revenue", &JXRefundEvent::revenue_},
          {JXE_SHIPPINGAMOUNT, "shippingAmount", &JXRefundEvent::shippingAmount_},
          {JXE_TAXAMOUNT, "taxAmount", &JXRefundEvent::taxAmount_},
          {JXE_TYPE, "type", &JXRefundEvent::type_},
          {JXE_URL, "url", &JXRefundEvent::url_},
          {JXE_COUPON, "coupon", &JXRefundEvent::coupon_},
          {JXE_ITEMS, "items", &JXRefundEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
      });
  return type;
}

}  // namespace jx
