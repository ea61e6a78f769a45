// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Mirrors every event to Firebase Analytics. The application passes an object whose operations the
// library calls by name, so the library does not depend on Firebase.
#include <memory>

#include "AnalyticsRecorder.h"
#include "FirebaseBridge.h"
#include "jx/JXServerSide.h"

namespace {

std::shared_ptr<jx::JXItem> item(const char* id, const char* productId, const char* name,
                                 const char* price, int quantity) {
  return jx::JXItem::initWithItemId_withProduct_withQuantity(
      id,
      jx::JXProduct::initWithProductId_withName_withPrice(productId, name,
                                                          jx::JXDecimal::fromString(price)),
      quantity);
}

std::shared_ptr<jx::JXPurchaseEvent> purchase() {
  const auto event = jx::JXPurchaseEvent::init();
  event->setID("536365");
  event->setRevenue(jx::JXDecimal::fromString("45.64"));
  event->setCurrency("GBP");
  event->setPaymentMethod(jx::EJXPayementMethod_CARD);
  event->items().append(item("1", "85123A", "Lantern", "3.39", 6));
  event->items().append(item("2", "71053", "Lamp", "25.30", 1));
  return event;
}

}  // namespace

int main() {
  jx::JXCoreConfiguration configuration;
  configuration.dryRun = true;  // the example sends nothing; omit this line in a real application
  jx::JXCoreConfiguration::set(configuration);

  const auto bridge = std::make_shared<FirebaseBridge>(std::make_shared<AnalyticsRecorder>());
  const auto serverSide =
      jx::ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(42, "source-key", bridge);
  serverSide->execute(purchase());
  return 0;
}
