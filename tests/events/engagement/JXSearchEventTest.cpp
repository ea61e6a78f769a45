// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/engagement/JXSearchEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXSearchEvent, WritesAllFieldsInOrder) {
  const auto event = JXSearchEvent::initWithSearchTerm("space");
  event->setPageName("P");
  event->setPageType("t");
  EXPECT_EQ(eventJson(*event), R"({"event_name":"search","page_name":"P","page_type":"t",)"
                               R"("context":{"event_id":"E"},"search_term":"space"})");
}

TEST(JXSearchEvent, WritesOnlyItsNameByDefault) {
  EXPECT_EQ(eventJson(*JXSearchEvent::init()),
            R"({"event_name":"search","context":{"event_id":"E"}})");
}

TEST(JXSearchEvent, RequiresASearchTerm) {
  expectRules<JXSearchEvent>(
      [] { return JXSearchEvent::initWithSearchTerm("space"); },
      {{"searchTerm must be a non-empty string", [](auto& event) { event.setSearchTerm(""); }}});
}

}  // namespace
}  // namespace jx::test
