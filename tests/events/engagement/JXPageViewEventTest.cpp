// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXPageViewEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXPageViewEvent, WritesItsOwnPageNameAndPageTypeOnce) {
  const auto event = JXPageViewEvent::initWithType("home");
  event->setPageName("Start");
  event->addAdditionalParameter_withValue("page_name", "additional");
  EXPECT_EQ(eventJson(*event),
            R"({"page_name":"Start","event_name":"page_view","page_type":"home",)"
            R"("context":{"event_id":"E"}})");
}

TEST(JXPageViewEvent, WritesOnlyItsNameByDefault) {
  EXPECT_EQ(eventJson(*JXPageViewEvent::init()),
            R"({"event_name":"page_view","context":{"event_id":"E"}})");
}

TEST(JXPageViewEvent, RequiresOnlyAPageType) {
  expectRules<JXPageViewEvent>(
      [] { return JXPageViewEvent::initWithType("home"); },
      {{"pageType must be a non-empty string", [](auto& event) { event.setPageType(""); }}});
}

TEST(JXPageViewEvent, IsInvalidUntilThePageTypeIsSet) {
  const auto event = JXPageViewEvent::init();
  EXPECT_FALSE(event->verifyEvent());
  event->setPageType("home");
  EXPECT_TRUE(event->verifyEvent());
}

TEST(JXPageViewEvent, IsValidIfInitWithTypeGetsANonEmptyString) {
  EXPECT_TRUE(JXPageViewEvent::initWithType("home")->verifyEvent());
  EXPECT_FALSE(JXPageViewEvent::initWithType("")->verifyEvent());
  EXPECT_FALSE(JXPageViewEvent::initWithType(nullptr)->verifyEvent());
}

}  // namespace
}  // namespace jx::test
