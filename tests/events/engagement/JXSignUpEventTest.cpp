// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXSignUpEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXSignUpEvent, WritesAllFieldsInOrder) {
  const auto event = JXSignUpEvent::init();
  event->setPageName("P");
  event->setPageType("t");
  event->setMethod("remote");
  EXPECT_EQ(eventJson(*event), R"({"event_name":"sign_up","page_name":"P","page_type":"t",)"
                               R"("context":{"event_id":"E"},"method":"remote"})");
}

TEST(JXSignUpEvent, IsValidAndOmitsTheMethodByDefault) {
  const auto event = JXSignUpEvent::init();
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(), JXString());
  EXPECT_EQ(eventJson(*event), R"({"event_name":"sign_up","context":{"event_id":"E"}})");
}

}  // namespace
}  // namespace jx::test
