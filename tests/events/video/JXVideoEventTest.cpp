// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXVideoEvent, WritesAllFieldsInOrder) {
  const auto event = JXVideoEvent::init();
  event->setName("video_start");
  event->setPageName("P");
  event->setPageType("t");
  event->setVideoSessionID("s-1");
  event->setCursorPosition(decimal("12.250"));
  event->setTotalLength(5400);
  event->setVideoTitle("Moon");
  event->setPublisher("Example Films");
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"video_start","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"video_session_id":"s-1","cursor_position":12.250,)"
            R"("total_length":5400,"video_title":"Moon","publisher":"Example Films"})");
}

TEST(JXVideoEvent, WritesOnlyItsContextByDefault) {
  EXPECT_EQ(eventJson(*JXVideoEvent::init()), R"({"context":{"event_id":"E"}})");
}

TEST(JXVideoEvent, IsInvalidRegardlessOfItsFields) {
  const auto event = JXVideoEvent::init();
  EXPECT_FALSE(event->verifyEvent());
  event->setName("video_start");
  event->setVideoSessionID("s-1");
  event->setCursorPosition(0);
  event->setTotalLength(5400);
  EXPECT_FALSE(event->verifyEvent());
  EXPECT_EQ(event->firstFailedCondition(),
            JXString("JXVideoEvent is a base class and never passes validation"));
}

TEST(JXVideoEvent, WritesPositionsAsExactNumbersNotAsStrings) {
  const auto event = JXVideoEvent::init();
  event->setCursorPosition(decimal("0.1"));
  event->setTotalLength(decimal("123456789012345678901234567890.12345678"));
  const JXJsonObject json = event->getJsonObject();
  EXPECT_EQ(json.get("cursor_position").numberString(), JXString("0.1"));
  EXPECT_EQ(json.get("total_length").numberString(),
            JXString("123456789012345678901234567890.12345678"));
}

}  // namespace
}  // namespace jx::test
