// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXSelectContentEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXSelectContentEvent, WritesAllFieldsInOrder) {
  const auto event = JXSelectContentEvent::init();
  event->setPageName("P");
  event->setPageType("t");
  event->setContentType("series");
  event->setItemID("S1");
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"select_content","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"content_type":"series","item_id":"S1"})");
}

TEST(JXSelectContentEvent, IsValidAndWritesOnlyItsNameByDefault) {
  const auto event = JXSelectContentEvent::init();
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(), JXString());
  EXPECT_EQ(eventJson(*event), R"({"event_name":"select_content","context":{"event_id":"E"}})");
}

}  // namespace
}  // namespace jx::test
