// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXAddPaymentInfoEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "add_payment_info";

}  // namespace

JXAddPaymentInfoEvent::JXAddPaymentInfoEvent(InitKey) { setName(kName); }

std::shared_ptr<JXAddPaymentInfoEvent> JXAddPaymentInfoEvent::init() {
  return make<JXAddPaymentInfoEvent>();
}

std::shared_ptr<JXAddPaymentInfoEvent> JXAddPaymentInfoEvent::initWithPaymentMethod(
    const JXString& paymentMethod) {
  std::shared_ptr<JXAddPaymentInfoEvent> event = make<JXAddPaymentInfoEvent>();
  event->setPaymentMethod(paymentMethod);
  return event;
}

const JXEventClass& JXAddPaymentInfoEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXAddPaymentInfoEvent>(
      JXECommerceEvent::eventClass(), "JXAddPaymentInfoEvent", {kName},
      {
          {JXE_PAYMENTMETHOD, "paymentMethod", &JXAddPaymentInfoEvent::paymentMethod_},
          {JXE_COUPON, "coupon", &JXAddPaymentInfoEvent::coupon_},
          {JXE_REVENUE, "revenue", &JXAddPaymentInfoEvent::revenue_},
          {JXE_CURRENCY, "currency", &JXAddPaymentInfoEvent::currency_},
          {JXE_ITEMS, "items", &JXAddPaymentInfoEvent::items_},
          {JXE_COUPON, "coupon", &JXAddPaymentInfoEvent::coupon_},
      },
      {
          nonEmptyString(JXE_PAYMENTMETHOD),
      });
  return type;
}

}  // namespace jx
