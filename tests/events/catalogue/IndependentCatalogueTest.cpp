// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "jx/catalogue/JXCondition.h"
#include "jx/catalogue/JXFieldTable.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/platform/JXString.h"
#include "tests/events/catalogue/ExpectedCatalogue.h"

namespace jx::test {

void PrintTo(const ExpectedClass& expected, std::ostream* out) { *out << expected.name; }

namespace {

using testing::ElementsAreArray;

// Both sides are written as lines of the same form, so that a failure shows the line that differs.
using Lines = std::vector<std::string>;

std::string kindName(JXFieldKind kind) {
  switch (kind) {
    case JXFieldKind::String:
      return "string";
    case JXFieldKind::Number:
      return "number";
    case JXFieldKind::Boolean:
      return "boolean";
    case JXFieldKind::Strings:
      return "strings";
    case JXFieldKind::NumberedStrings:
      return "numbered strings";
    case JXFieldKind::Values:
      return "values";
    case JXFieldKind::Enumeration:
      return "enumeration";
    case JXFieldKind::Items:
      return "items";
    case JXFieldKind::Product:
      return "product";
  }
  return "unknown kind";
}

std::string kindName(JXCondition::Kind kind) {
  switch (kind) {
    case JXCondition::Kind::Never:
      return "never";
    case JXCondition::Kind::NonEmptyString:
      return "non-empty string";
    case JXCondition::Kind::Present:
      return "present";
    case JXCondition::Kind::NonEmptyList:
      return "non-empty list";
    case JXCondition::Kind::Together:
      return "together";
  }
  return "unknown kind";
}

std::string joined(const std::vector<std::string_view>& parts) {
  std::string line;
  for (const std::string_view part : parts) {
    line.append(line.empty() ? "" : " | ").append(part);
  }
  return line;
}

Lines strings(const std::vector<std::string_view>& views) { return {views.begin(), views.end()}; }

Lines linesOf(const std::vector<ExpectedField>& fields) {
  Lines lines;
  for (const ExpectedField& field : fields) {
    std::vector<std::string_view> parts{field.kind, field.key, field.property};
    for (const ExpectedEnumerator& enumerator : field.enumerators) {
      parts.push_back(enumerator.name);
      parts.push_back(enumerator.string);
    }
    lines.push_back(joined(parts));
  }
  return lines;
}

Lines linesOf(const JXFieldTable& table) {
  Lines lines;
  for (const JXFieldInfo& field : table.fields()) {
    const std::string kind = kindName(field.kind);
    std::vector<std::string_view> parts{kind, field.key, field.property};
    for (std::size_t value = 0; value < field.enumStrings.count; ++value) {
      parts.push_back(field.enumStrings.enumerators[value]);
      parts.push_back(field.enumStrings.strings[value]);
    }
    lines.push_back(joined(parts));
  }
  return lines;
}

Lines linesOf(const JXFieldTable* table) { return table == nullptr ? Lines() : linesOf(*table); }

template <typename Condition>
std::string lineOf(const Condition& condition, const std::string& kind) {
  return kind + " key=" + std::string(condition.key) + " other=" + std::string(condition.otherKey) +
         " only=[" + joined(condition.onlyFor) + "] except=[" + joined(condition.exceptFor) + "]";
}

Lines linesOf(const std::vector<ExpectedCondition>& conditions) {
  Lines lines;
  for (const ExpectedCondition& condition : conditions) {
    lines.push_back(lineOf(condition, std::string(condition.kind)));
  }
  return lines;
}

Lines linesOf(const std::vector<JXCondition>& conditions) {
  Lines lines;
  for (const JXCondition& condition : conditions) {
    lines.push_back(lineOf(condition, kindName(condition.kind)));
  }
  return lines;
}

TEST(IndependentCatalogue, ListsExactlyTheExpectedClasses) {
  Lines expected;
  for (const ExpectedClass& one : expectedClasses()) {
    expected.emplace_back(one.name);
  }
  Lines actual;
  for (const JXEventClass* one : allEventClasses()) {
    ASSERT_NE(one, nullptr);
    actual.emplace_back(one->className);
  }
  EXPECT_THAT(actual, testing::UnorderedElementsAreArray(expected));
}

TEST(IndependentCatalogue, ListsBasesBeforeDerivedClasses) {
  std::set<const JXBlockClass*> seen;
  for (const JXEventClass* one : allEventClasses()) {
    EXPECT_TRUE(one->base == nullptr || seen.count(one->base) == 1) << one->className;
    seen.insert(one);
  }
}

TEST(IndependentCatalogue, HasUniqueEventNames) {
  std::set<std::string> names;
  for (const JXEventClass* one : allEventClasses()) {
    for (const std::string_view name : one->eventNames) {
      EXPECT_TRUE(names.insert(std::string(name)).second) << name;
    }
  }
}

TEST(IndependentCatalogue, ListsItemFieldsInOrder) {
  EXPECT_THAT(linesOf(JXItem::fields()), ElementsAreArray(linesOf(expectedItemFields())));
}

TEST(IndependentCatalogue, ListsProductFieldsInOrder) {
  EXPECT_THAT(linesOf(JXProduct::fields()), ElementsAreArray(linesOf(expectedProductFields())));
}

class IndependentCatalogueClass : public testing::TestWithParam<ExpectedClass> {
 protected:
  void SetUp() override {
    actual_ = eventClassNamed(GetParam().name);
    ASSERT_NE(actual_, nullptr);
  }

  const JXEventClass* actual_ = nullptr;
};

TEST_P(IndependentCatalogueClass, HasItsBase) {
  EXPECT_EQ(actual_->className, GetParam().name);
  EXPECT_EQ(actual_->base == nullptr ? std::string_view() : actual_->base->className,
            GetParam().base);
}

TEST_P(IndependentCatalogueClass, HasItsEventNamesAndModes) {
  EXPECT_THAT(strings(actual_->eventNames), ElementsAreArray(strings(GetParam().eventNames)));
  EXPECT_THAT(strings(actual_->modes), ElementsAreArray(strings(GetParam().modes)));
}

TEST_P(IndependentCatalogueClass, ListsItsOwnFieldsInOrder) {
  EXPECT_THAT(linesOf(actual_->written), ElementsAreArray(linesOf(GetParam().written)));
}

TEST_P(IndependentCatalogueClass, ListsItsUnwrittenProperties) {
  EXPECT_THAT(linesOf(actual_->unwritten), ElementsAreArray(linesOf(GetParam().unwritten)));
}

TEST_P(IndependentCatalogueClass, ListsItsConditionsInOrder) {
  EXPECT_THAT(linesOf(actual_->conditions), ElementsAreArray(linesOf(GetParam().conditions)));
}

TEST_P(IndependentCatalogueClass, CreatesEventsWithTheNameOfTheirMode) {
  const std::vector<std::string_view>& names = GetParam().eventNames;
  for (std::size_t mode = 0; mode < std::max<std::size_t>(names.size(), 1); ++mode) {
    const std::shared_ptr<JXEvent> event = actual_->create(static_cast<int>(mode), JXString());
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(event->ownEventClass().className, GetParam().name);
    EXPECT_EQ(event->name(), names.empty() ? JXString() : JXString(names[mode]));
  }
}

INSTANTIATE_TEST_SUITE_P(Each, IndependentCatalogueClass, testing::ValuesIn(expectedClasses()),
                         [](const testing::TestParamInfo<ExpectedClass>& one) {
                           return std::string(one.param.name);
                         });

}  // namespace
}  // namespace jx::test
