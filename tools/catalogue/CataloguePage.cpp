// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/CataloguePage.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <vector>

#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "tools/catalogue/ClassComment.h"

namespace jx::catalogue {
namespace {

constexpr std::string_view kIntroduction =
    R"(<!-- Written by jx_event_catalogue from the tables in jx/events. Do not change it by hand. -->
# The events

An event is an object that you make, fill and hand to `ServerSide::execute`. This page lists every
event class: the name that its events carry, the fields that it writes, and what makes it complete.

How to read it:

- **Property** is the name in the code: `coupon` is read with `coupon()` and set with
  `setCoupon(value)`. **Key** is where the value stands in the event's JSON. Fields are listed in the
  order in which they are written.
- An absent value writes no key. An empty text, a zero and `false` are values and are written. Amounts
  and counts are exact decimals and keep the scale that they were given.
- Your own parameters (`addAdditionalParameter_withValue` and its siblings) come first; a field of
  the event with the same key replaces them.
- **Complete** is what `verifyEvent()` tests, in this order; `firstFailedCondition()` tells the first
  that fails in words. Nothing is held back because of it: `execute` sends an event that is not
  complete all the same.
- Each event also carries `context` with its `event_id`, a new one for every sending.
)";

struct Group {
  std::string_view title;
  std::vector<const JXEventClass*> classes;
};

bool isBase(const JXEventClass& type) {
  const auto& all = allEventClasses();
  return std::any_of(all.begin(), all.end(),
                     [&type](const JXEventClass* other) { return other->base == &type; });
}

std::vector<Group> groups() {
  Group shopping{"Shopping", {}};
  Group engagement{"Engagement", {}};
  Group video{"Video", {}};
  Group own{"Your own events", {}};
  Group bases{"What the classes share", {}};
  for (const JXEventClass* type : allEventClasses()) {
    if (isBase(*type)) {
      bases.classes.push_back(type);
    } else if (type->eventNames.empty()) {
      own.classes.push_back(type);
    } else if (type->base->className == "JXECommerceEvent") {
      shopping.classes.push_back(type);
    } else if (type->base->className == "JXVideoEvent") {
      video.classes.push_back(type);
    } else {
      engagement.classes.push_back(type);
    }
  }
  return {shopping, engagement, video, own, bases};
}

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

std::string codes(const std::vector<std::string_view>& texts, std::string_view lastWord) {
  std::string joined;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i != 0) joined += i + 1 == texts.size() ? " " + std::string(lastWord) + " " : ", ";
    joined += code(texts[i]);
  }
  return joined;
}

std::string link(std::string_view title) {
  std::string anchor;
  for (const char c : title) {
    anchor += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return "[" + std::string(title) + "](#" + anchor + ")";
}

std::string typeInWords(const JXFieldInfo& field) {
  switch (field.kind) {
    case JXFieldKind::String:
      return "string";
    case JXFieldKind::Number:
      return "number";
    case JXFieldKind::Boolean:
      return "`true` or `false`, always written";
    case JXFieldKind::Strings:
      return "array of strings, always written";
    case JXFieldKind::NumberedStrings:
      return "a string for each, numbered from 1";
    case JXFieldKind::Values:
      return "array";
    case JXFieldKind::Enumeration:
      return "string: " + codes(field.enumStrings.allStrings(), "or");
    case JXFieldKind::Items:
      return "array of " + link("JXItem") + " objects, always written";
    case JXFieldKind::Product:
      return link("JXProduct") + " object";
  }
  return {};
}

bool hasKey(const std::vector<std::string_view>& keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// `written` holds the keys that stand in the JSON before this table writes.
std::string tableOfFields(const JXFieldTable& table, std::vector<std::string_view> written) {
  std::string text = "| property | key | JSON |\n|---|---|---|\n";
  for (const JXFieldInfo& field : table.fields()) {
    const std::string number = field.kind == JXFieldKind::NumberedStrings ? "1" : "";
    text +=
        "| " + code(field.property) + " | " + code(std::string(field.key) + number) + " | " +
        (hasKey(written, field.key) ? "written again, with the same value" : typeInWords(field)) +
        " |\n";
    written.push_back(field.key);
  }
  return text;
}

std::vector<std::string_view> keysOf(const JXEventClass* type) {
  std::vector<std::string_view> keys;
  for (; type != nullptr; type = type->base) {
    for (const JXFieldInfo& field : type->written->fields())
      keys.push_back(field.key);
  }
  return keys;
}

std::string propertyOf(const JXEventClass& type, std::string_view key) {
  const JXFieldInfo* const field = type.fieldOfKey(key);
  return code(field != nullptr ? field->property : key);
}

std::string requirement(const JXEventClass& type, const JXCondition& condition) {
  const std::string property = propertyOf(type, condition.key);
  switch (condition.kind) {
    case JXCondition::Kind::Never:
      break;
    case JXCondition::Kind::NonEmptyString:
      return property + " is a text of at least one character";
    case JXCondition::Kind::Present:
      return property + (type.fieldOfKey(condition.key)->kind == JXFieldKind::Number
                             ? " is there, zero included"
                             : " is there, even if it is empty");
    case JXCondition::Kind::NonEmptyList:
      return property + " holds at least one entry";
    case JXCondition::Kind::Together:
      return property + " and " + propertyOf(type, condition.otherKey) +
             " are both given, or neither is";
  }
  return {};
}

std::string conditionsOf(const JXEventClass& type) {
  if (type.conditions.empty()) return "Always complete.\n";
  if (type.conditions.front().kind == JXCondition::Kind::Never) {
    return "Never complete on its own.\n";
  }
  std::string text = "Complete when\n\n";
  int number = 0;
  for (const JXCondition& condition : type.conditions) {
    text += std::to_string(++number) + ". " + requirement(type, condition);
    if (!condition.onlyFor.empty()) text += " (only " + codes(condition.onlyFor, "and") + ")";
    if (!condition.exceptFor.empty()) {
      text += " (not asked of " + codes(condition.exceptFor, "and") + ")";
    }
    text += '\n';
  }
  return text;
}

std::string namesOf(const JXEventClass& type) {
  if (type.eventNames.empty()) return {};
  if (type.modes.empty()) return "Event name: " + codes(type.eventNames, "or") + "\n\n";
  std::string text = "| mode | event name |\n|---|---|\n";
  for (std::size_t i = 0; i < type.modes.size(); ++i)
    text += "| " + code(type.modes[i]) + " | " + code(type.eventNames[i]) + " |\n";
  return text + "\n";
}

std::string heading(const std::string& sourceFolder, std::string_view className) {
  const ClassComment comment = commentOfClass(sourceFolder, className);
  return "\n### " + std::string(className) + "\n\n" + comment.text + "\n\nHeader: [" +
         comment.header + "](../" + comment.header + ")\n\n";
}

const JXEventClass* nearestThatWrites(const JXEventClass* type) {
  while (type != nullptr && type->written->fields().empty())
    type = type->base;
  return type;
}

std::string sectionOf(const std::string& sourceFolder, const JXEventClass& type) {
  std::string text = heading(sourceFolder, type.className) + namesOf(type);
  const bool hasFields = !type.written->fields().empty();
  if (const JXEventClass* const before = nearestThatWrites(type.base)) {
    text += (hasFields ? "Fields, behind those of " : "Fields: those of ") +
            link(before->className) + (hasFields ? ":\n\n" : ".\n\n");
  }
  if (hasFields) text += tableOfFields(*type.written, keysOf(type.base)) + "\n";
  return text + conditionsOf(type);
}

std::string contents(const std::vector<Group>& all) {
  std::string text = "\n## Contents\n\n";
  for (const Group& group : all) {
    text += "- " + link(group.title) + ": ";
    for (const JXEventClass* type : group.classes)
      text += (type == group.classes.front() ? "" : ", ") + link(type->className);
    text += '\n';
  }
  return text + "- " + link("Items and products") + ": " + link("JXItem") + ", " +
         link("JXProduct") + "\n";
}

}  // namespace

std::string cataloguePage(const std::string& sourceFolder) {
  const std::vector<Group> all = groups();
  std::string text = std::string(kIntroduction) + contents(all);
  for (const Group& group : all) {
    text += "\n## " + std::string(group.title) + "\n";
    for (const JXEventClass* type : group.classes)
      text += sectionOf(sourceFolder, *type);
  }
  text += "\n## Items and products\n" + heading(sourceFolder, "JXItem") +
          tableOfFields(JXItem::fields(), {}) + heading(sourceFolder, "JXProduct") +
          tableOfFields(JXProduct::fields(), {});
  return text;
}

}  // namespace jx::catalogue
