// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "tests/support/JXFakePlatform.h"

namespace jx::test {

/// The platform that events are made on in a test. The first call starts the core on it, with
/// nothing stored and nothing sent.
JXFakePlatform& eventPlatform();

/// The event's JSON as compact text. Its "event_id" is compared with the UUID that the platform
/// made for it, and then stands as "E", so that expected texts are short.
std::string eventJson(const JXEvent& event);
/// Compact text of any object.
std::string jsonText(const JXJsonObject& object);

/// The number of this text; the test fails when it is none.
JXDecimal decimal(const char* text);

/// An item that verifies, two lamps at 12.50, and its JSON.
std::shared_ptr<JXItem> lampItem();
inline constexpr const char* kLampJson =
    R"({"id":"1","quantity":2,"product":{"id":"L7","name":"Lamp","price":12.50,"colors":[]}})";

/// One rule of a class: how to break it, and what the event then says of itself.
template <typename Event>
struct Rule {
  std::string words;
  std::function<void(Event&)> breakIt;
};

/// Checks that an event of `complete` verifies, that breaking each rule alone is found and told in
/// its words, and that the rules are tested in the order of the list.
template <typename Event>
void expectRules(const std::function<std::shared_ptr<Event>()>& complete,
                 const std::vector<Rule<Event>>& rules) {
  EXPECT_TRUE(complete()->verifyEvent());
  EXPECT_EQ(complete()->firstFailedCondition(), JXString());
  for (std::size_t first = 0; first < rules.size(); ++first) {
    SCOPED_TRACE(rules[first].words);
    const std::shared_ptr<Event> oneBroken = complete();
    rules[first].breakIt(*oneBroken);
    EXPECT_FALSE(oneBroken->verifyEvent());
    EXPECT_EQ(oneBroken->firstFailedCondition(), JXString(rules[first].words));
    const std::shared_ptr<Event> restBroken = complete();
    for (std::size_t i = first; i < rules.size(); ++i)
      rules[i].breakIt(*restBroken);
    EXPECT_EQ(restBroken->firstFailedCondition(), JXString(rules[first].words));
  }
}

}  // namespace jx::test
