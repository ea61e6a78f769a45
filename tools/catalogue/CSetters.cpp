// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/CSetters.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace jx::catalogue {
namespace {

std::string withCapital(std::string_view property) {
  std::string text(property);
  text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

bool isBase(const JXEventClass& type) {
  const auto& all = allEventClasses();
  return std::any_of(all.begin(), all.end(),
                     [&type](const JXEventClass* other) { return other->base == &type; });
}

}  // namespace

std::vector<CClass> cEventClasses() {
  std::vector<CClass> classes;
  for (const JXEventClass* event : allEventClasses())
    classes.push_back({std::string(event->className), "event", event});
  return classes;
}

bool takesName(const CClass& type) {
  return type.event != nullptr && type.event->eventNames.empty() && !isBase(*type.event);
}

std::string enumName(const CClass& type, const JXFieldInfo& field) {
  return type.name + "_" + withCapital(field.property);
}

std::vector<CSetter> settersOf(const CClass& type, const JXFieldInfo& field) {
  const std::string property(field.property);
  const std::string set = type.name + "_set" + withCapital(property);
  const std::string sets = "Sets `" + property + "`";
  const std::string orNull = "; null removes the value.";
  switch (field.kind) {
    case JXFieldKind::String:
      return {{sets + orNull, set, {"const char* value"}, "jx_object_set_string", {"value"}}};
    case JXFieldKind::Number:
      return {{sets + " from a decimal string" + orNull,
               set,
               {"const char* number"},
               "jx_object_set_number",
               {"number"}},
              {sets + " from an integer.",
               set + "_integer",
               {"int64_t value"},
               "jx_object_set_integer",
               {"value"}}};
    case JXFieldKind::Boolean:
      return {{sets + ".", set, {"bool value"}, "jx_object_set_boolean", {"value"}}};
    case JXFieldKind::Strings:
    case JXFieldKind::NumberedStrings:
      return {{sets + " to a list of strings" + orNull,
               set,
               {"const char* const* strings", "size_t count"},
               "jx_object_set_strings",
               {"strings", "count"}}};
    case JXFieldKind::Values:
      return {{sets + " from a JSON array" + orNull,
               set,
               {"const char* json"},
               "jx_object_set_json",
               {"json"}}};
    case JXFieldKind::Enumeration:
      return {
          {sets + ".", set, {enumName(type, field) + " value"}, "jx_object_set_enum", {"value"}}};
    case JXFieldKind::Items:
      return {{"Appends a copy of an item to `" + property + "`.",
               type.name + "_" + property + "_append",
               {"const jx_object* item"},
               "jx_object_add_item",
               {"item"}}};
    case JXFieldKind::Product:
      return {{sets + " to a copy of a product" + orNull,
               set,
               {"const jx_object* product"},
               "jx_object_set_product",
               {"product"}}};
  }
  return {};
}

}  // namespace jx::catalogue
