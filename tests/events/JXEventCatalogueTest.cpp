// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "jx/events/JXEventClass.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

TEST(JXEventCatalogue, ListsEachClassOnceAndBasesFirst) {
  std::vector<std::string_view> names;
  for (const JXEventClass* type : allEventClasses()) {
    if (type->base != nullptr) {
      EXPECT_NE(std::find(names.begin(), names.end(), type->base->className), names.end())
          << type->className;
    }
    names.push_back(type->className);
  }
  EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), names.size());
}

TEST(JXEventCatalogue, FindsAClassByItsName) {
  ASSERT_NE(eventClassNamed("JXViewItem"), nullptr);
  EXPECT_EQ(eventClassNamed("JXViewItem")->className, "JXViewItem");
  EXPECT_EQ(eventClassNamed("JXViewItemEvent"), nullptr);
  EXPECT_EQ(eventClassNamed(""), nullptr);
}

TEST(JXEventCatalogue, CreatesEventsOfEachClassWithTheirName) {
  for (const JXEventClass* type : allEventClasses()) {
    SCOPED_TRACE(type->className);
    if (!type->modes.empty()) continue;
    const std::shared_ptr<JXEvent> event = type->create(0, "given");
    EXPECT_EQ(&event->ownEventClass(), type);
    if (type->className == "JXCustomEvent") {
      EXPECT_EQ(event->name(), JXString("given"));
    } else if (type->eventNames.empty()) {
      EXPECT_EQ(event->name(), JXString());
    } else {
      ASSERT_EQ(type->eventNames.size(), 1u);
      EXPECT_EQ(event->name(), JXString(type->eventNames[0]));
    }
  }
}

TEST(JXEventCatalogue, CreatesVideoEventsOfEachModeWithTheirSessionID) {
  int classesWithModes = 0;
  for (const JXEventClass* type : allEventClasses()) {
    SCOPED_TRACE(type->className);
    if (type->modes.empty()) continue;
    ++classesWithModes;
    ASSERT_EQ(type->modes.size(), type->eventNames.size());
    for (std::size_t mode = 0; mode < type->modes.size(); ++mode) {
      const std::shared_ptr<JXEvent> event = type->create(static_cast<int>(mode), "s-1");
      EXPECT_EQ(&event->ownEventClass(), type);
      EXPECT_EQ(event->name(), JXString(type->eventNames[mode]));
      EXPECT_EQ(event->getJsonObject().get("video_session_id").string(), JXString("s-1"));
    }
    EXPECT_EQ(type->create(-1, nullptr)->name(), JXString());
    EXPECT_EQ(type->create(static_cast<int>(type->modes.size()), nullptr)->name(), JXString());
  }
  EXPECT_EQ(classesWithModes, 4);
}

TEST(JXEventCatalogue, HasUniqueEventNames) {
  std::set<std::string_view> seen;
  for (const JXEventClass* type : allEventClasses()) {
    for (const std::string_view name : type->eventNames)
      EXPECT_TRUE(seen.insert(name).second) << name;
  }
}

// A condition on a field that neither the class nor its bases write could never be met.
TEST(JXEventCatalogue, HasConditionsOnlyOnFieldsAndNamesOfTheClass) {
  for (const JXEventClass* type : allEventClasses()) {
    for (const JXCondition& condition : type->conditions) {
      SCOPED_TRACE(std::string(type->className) + " " + std::string(condition.key));
      if (condition.kind == JXCondition::Kind::Never) continue;
      EXPECT_NE(type->fieldOfKey(condition.key), nullptr);
      if (condition.kind == JXCondition::Kind::Together) {
        EXPECT_NE(type->fieldOfKey(condition.otherKey), nullptr);
      }
      for (const auto& names : {condition.onlyFor, condition.exceptFor}) {
        for (const std::string_view name : names) {
          EXPECT_NE(std::find(type->eventNames.begin(), type->eventNames.end(), name),
                    type->eventNames.end());
        }
      }
    }
  }
}

// A key that is listed twice must have the same property both times, because only the first listing
// is written.
TEST(JXEventCatalogue, ListsDuplicateKeysWithTheSameProperty) {
  std::vector<std::string> repeated;
  for (const JXEventClass* type : allEventClasses()) {
    std::vector<JXFieldInfo> fields;
    for (const JXBlockClass* each = type; each != nullptr; each = each->base)
      fields.insert(fields.begin(), each->written->fields().begin(), each->written->fields().end());
    for (std::size_t i = 0; i < fields.size(); ++i) {
      for (std::size_t j = i + 1; j < fields.size(); ++j) {
        if (fields[i].key != fields[j].key) continue;
        EXPECT_EQ(fields[i].property, fields[j].property) << type->className;
        repeated.push_back(std::string(type->className) + " " + std::string(fields[i].key));
      }
    }
  }
  EXPECT_EQ(repeated, (std::vector<std::string>{
                          "JXAddPaymentInfoEvent coupon", "JXPageViewEvent page_name",
                          "JXPageViewEvent page_type", "JXVideoContentEvent total_length"}));
}

}  // namespace
}  // namespace jx::test
