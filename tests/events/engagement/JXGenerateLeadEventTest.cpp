// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXGenerateLeadEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXGenerateLeadEvent, WritesAllFieldsInOrder) {
  const auto event = JXGenerateLeadEvent::initWithValue_withCurrency(decimal("9.90"), "EUR");
  event->setPageName("P");
  event->setPageType("t");
  event->setID("L1");
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"generate_lead","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"currency":"EUR","value":9.90,"id":"L1"})");
}

TEST(JXGenerateLeadEvent, WritesOnlyItsNameByDefault) {
  EXPECT_EQ(eventJson(*JXGenerateLeadEvent::init()),
            R"({"event_name":"generate_lead","context":{"event_id":"E"}})");
}

TEST(JXGenerateLeadEvent, IsValidWithoutValueAndCurrency) {
  EXPECT_TRUE(JXGenerateLeadEvent::init()->verifyEvent());
  EXPECT_TRUE(JXGenerateLeadEvent::initWithValue_withCurrency(std::nullopt, "")->verifyEvent());
}

TEST(JXGenerateLeadEvent, IsInvalidWithOnlyACurrency) {
  const auto event = JXGenerateLeadEvent::initWithValue_withCurrency(std::nullopt, "EUR");
  EXPECT_FALSE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(), JXString("value and currency must be set together"));
}

TEST(JXGenerateLeadEvent, IsInvalidWithOnlyAValue) {
  EXPECT_FALSE(JXGenerateLeadEvent::initWithValue_withCurrency(1, nullptr)->verifyEvent());
  EXPECT_FALSE(JXGenerateLeadEvent::initWithValue_withCurrency(1, "")->verifyEvent());
}

TEST(JXGenerateLeadEvent, IsValidWithBothAndAcceptsAValueOfZero) {
  EXPECT_TRUE(
      JXGenerateLeadEvent::initWithValue_withCurrency(decimal("9.90"), "EUR")->verifyEvent());
  EXPECT_TRUE(JXGenerateLeadEvent::initWithValue_withCurrency(0, "EUR")->verifyEvent());
}

}  // namespace
}  // namespace jx::test
