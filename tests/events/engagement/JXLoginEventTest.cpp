// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXLoginEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXLoginEvent, WritesAllFieldsInOrder) {
  const auto event = JXLoginEvent::init();
  event->setPageName("P");
  event->setPageType("t");
  event->setMethod("remote");
  EXPECT_EQ(eventJson(*event), R"({"event_name":"login","page_name":"P","page_type":"t",)"
                               R"("context":{"event_id":"E"},"method":"remote"})");
}

TEST(JXLoginEvent, IsValidAndOmitsTheMethodByDefault) {
  const auto event = JXLoginEvent::init();
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(), JXString());
  EXPECT_EQ(eventJson(*event), R"({"event_name":"login","context":{"event_id":"E"}})");
}

}  // namespace
}  // namespace jx::test
