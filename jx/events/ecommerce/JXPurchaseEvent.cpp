// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXPurchaseEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "purchase";

}  // namespace

JXPurchaseEvent::JXPurchaseEvent(InitKey) { setName(kName); }

std::shared_ptr<JXPurchaseEvent> JXPurchaseEvent::init() { return make<JXPurchaseEvent>(); }

std::shared_ptr<JXPurchaseEvent> JXPurchaseEvent::
    initWithId_withRevenue_withValue_withCurrency_withType_withPaymentMethod_withStatus_withItems(
        const JXString& ID, const std::optional<JXDecimal>& revenue,
        const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type,
        const JXString& paymentMethod, const JXString& status,
        const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXPurchaseEvent> event = make<JXPurchaseEvent>();
  event->setID(ID);
  event->setRevenue(revenue);
  event->setValue(value);
  event->setCurrency(currency);
  event->setType(type);
  event->setPaymentMethod(paymentMethod);
  event->setStatus(status);
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXPurchaseEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXPurchaseEvent>(
      JXECommerceEvent::eventClass(), "JXPurchaseEvent", {kName},
      {
          {JXE_CURRENCY, "currency", &JXPurchaseEvent::currency_},
          {JX_ID, "ID", &JXPurchaseEvent::ID_},
          {JXE_VALUE, "value", &JXPurchaseEvent::value_},
          {JXE_REVENUE, "revenue", &JXPurchaseEvent::revenue_},
          {JXE_SHIPPINGAMOUNT, "shippingAmount", &JXPurchaseEvent::shippingAmount_},
          {JXE_TAXAMOUNT, "taxAmount", &JXPurchaseEvent::taxAmount_},
          {JXE_COUPON, "coupon", &JXPurchaseEvent::coupon_},
          {JXE_TYPE, "type", &JXPurchaseEvent::type_},
          {JXE_PAYMENTMETHOD, "paymentMethod", &JXPurchaseEvent::paymentMethod_},
          {JXE_STATUS, "status", &JXPurchaseEvent::status_},
          {JXE_URL, "url", &JXPurchaseEvent::url_},
          {JXE_ITEMS, "items", &JXPurchaseEvent::items_},
      },
      {
          nonEmptyList(JXE_ITEMS),
          nonEmptyString(JX_ID),
          present(JXE_REVENUE),
          present(JXE_VALUE),
          nonEmptyString(JXE_CURRENCY),
          nonEmptyString(JXE_TYPE),
          nonEmptyString(JXE_PAYMENTMETHOD),
          nonEmptyString(JXE_STATUS),
      });
  return type;
}

}  // namespace jx
