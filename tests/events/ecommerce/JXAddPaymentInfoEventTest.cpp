// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/ecommerce/JXAddPaymentInfoEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXAddPaymentInfoEvent, WritesAllFieldsInOrderAndTheCouponOnce) {
  const auto event = JXAddPaymentInfoEvent::initWithPaymentMethod("card");
  event->setPageName("P");
  event->setPageType("t");
  event->setCoupon("SPRING");
  event->setRevenue(decimal("20.10"));
  event->setCurrency("GBP");
  event->items().append(lampItem());
  EXPECT_EQ(eventJson(*event),
            std::string(R"({"event_name":"add_payment_info","page_name":"P","page_type":"t",)"
                        R"("context":{"event_id":"E"},"payment_method":"card",)"
                        R"("coupon":"SPRING","revenue":20.10,"currency":"GBP","items":[)") +
                kLampJson + "]}");
}

TEST(JXAddPaymentInfoEvent, WritesOnlyItsNameAndEmptyItemsByDefault) {
  EXPECT_EQ(eventJson(*JXAddPaymentInfoEvent::init()),
            R"({"event_name":"add_payment_info","context":{"event_id":"E"},"items":[]})");
}

TEST(JXAddPaymentInfoEvent, RequiresOnlyAPaymentMethod) {
  expectRules<JXAddPaymentInfoEvent>(
      [] { return JXAddPaymentInfoEvent::initWithPaymentMethod("card"); },
      {{"paymentMethod must be a non-empty string",
        [](auto& event) { event.setPaymentMethod(""); }}});
}

TEST(JXAddPaymentInfoEvent, IsValidWithOnlyAPaymentMethodAndWritesItems) {
  const auto event = JXAddPaymentInfoEvent::initWithPaymentMethod("card");
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(eventJson(*event), R"({"event_name":"add_payment_info","context":{"event_id":"E"},)"
                               R"("payment_method":"card","items":[]})");
}

}  // namespace
}  // namespace jx::test
