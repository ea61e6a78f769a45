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

/// Returns the platform that events use in a test. The first call starts the core with it, in a dry
/// run.
JXFakePlatform& eventPlatform();

/// Returns the event as compact JSON. Compares its "event_id" with the UUID that the platform
/// created for it, then replaces it with "E", so that expected strings are short.
std::string eventJson(const JXEvent& event);
/// Returns any object as compact JSON.
std::string jsonText(const JXJsonObject& object);

/// Returns the number in `text`; the test fails when it is not a number.
JXDecimal decimal(const char* text);

/// A valid item, two lamps at 12.50, and its JSON.
std::shared_ptr<JXItem> lampItem();
inline constexpr const char* kLampJson =
    R"({"id":"1","quantity":2,"product":{"id":"L7","name":"Lamp","price":12.50,"colors":[]}})";

/// One rule of a class: how to violate it, and the expected diagnostic.
template <typename Event>
struct Rule {
  std::string words;
  std::function<void(Event&)> breakIt;
};

/// Checks that an event of `complete` is valid, that violating each rule alone is reported with its
/// diagnostic, and that the rules are checked in the order of the list.
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
