// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/Events.h"

namespace jx::bench {

std::shared_ptr<JXEvent> customEvent() {
  auto event = JXCustomEvent::initWithName("quiz_answer");
  event->setPageName("home");
  event->setPageType("landing");
  event->addAdditionalParameter_withValue("answer", "forty-two");
  event->addAdditionalParameter_withValue("question", "What is six times seven?");
  return event;
}

std::shared_ptr<JXEvent> purchase(int items) {
  auto event = JXPurchaseEvent::init();
  event->setID("536365");
  event->setCurrency("GBP");
  event->setRevenue(JXDecimal::fromString("139.12"));
  event->setValue(JXDecimal::fromString("115.93"));
  event->setShippingAmount(JXDecimal::fromString("4.95"));
  event->setTaxAmount(JXDecimal::fromString("23.19"));
  event->setType("online");
  event->setPaymentMethod(EJXPayementMethod_CARD);
  event->setStatus(EJXPurchaseStatus_IN_PROGRESS);
  for (int i = 0; i < items; ++i) {
    auto product = JXProduct::initWithProductId_withName_withPrice(
        "85123A", "WHITE HANGING HEART T-LIGHT HOLDER", JXDecimal::fromString("2.55"));
    product->setCurrency("GBP");
    product->categories().append("home");
    product->categories().append("lighting");
    auto item = JXItem::initWithItemId_withProduct_withQuantity("536365-0", product, 6);
    item->setList_position(i);
    event->items().append(item);
  }
  return event;
}

}  // namespace jx::bench
