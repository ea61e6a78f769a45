// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCField.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "jx/events/JXEventClass.h"

namespace jx::c {
namespace {

// The rule for the value of each JXFieldKind, in the order of the enumeration.
constexpr const char* kRules[] = {"must be a string",
                                  "must be a number",
                                  "must be a Boolean",
                                  "must be a list of strings",
                                  "must be a list of strings",
                                  "must be a JSON array",
                                  "must be a value of its enumeration",
                                  "must be a list of items",
                                  "must be a product"};
static_assert(std::size(kRules) == static_cast<std::size_t>(JXFieldKind::Product) + 1);

bool isClass(std::string_view name) {
  return name == "JXItem" || name == "JXProduct" || eventClassNamed(name) != nullptr;
}

// The names are NUL-terminated constants.
const char* classOf(const JXCObject& object) { return object.type().className.data(); }

Result wrongType(const char* field, const std::string& rule) {
  return {JX_ERROR_WRONG_TYPE, std::string(field) + " " + rule};
}

}  // namespace

Result findField(const JXCObject& object, const char* name,
                 std::initializer_list<JXFieldKind> kinds, const JXFieldInfo*& field) {
  if (name == nullptr) return {JX_ERROR_NULL_ARGUMENT, "field must not be null"};
  std::string_view property = name;
  if (const std::size_t dot = property.find('.'); dot != std::string_view::npos) {
    const std::string_view type = property.substr(0, dot);
    property.remove_prefix(dot + 1);
    if (!isClass(type)) {
      return {JX_ERROR_UNKNOWN_CLASS, quoted(name) + " does not name a known class"};
    }
    if (!object.type().isOrDerivesFrom(type)) {
      return {JX_ERROR_WRONG_CLASS, quoted(name) + " is not a field of " + classOf(object)};
    }
  }
  field = object.type().fieldOfProperty(property);
  if (field == nullptr) {
    return {JX_ERROR_UNKNOWN_FIELD, quoted(name) + " is not a field of " + classOf(object)};
  }
  const JXFieldKind kind = field->kind;
  if (kinds.size() == 0 || std::find(kinds.begin(), kinds.end(), kind) != kinds.end()) return JX_OK;
  return wrongType(name, kRules[static_cast<std::size_t>(kind)]);
}

Result set(JXCObject& object, const char* name, const JXFieldInfo& field,
           const JXJsonValue& value) {
  const std::string error = object.set(field, value);
  return error.empty() ? JX_OK : wrongType(name, error);
}

Result copyOf(const jx_object* handle, const char* className, const char* argument,
              JXJsonValue& copy) {
  return with<JXCObject>(handle, JXHandleKind::Object, [&](JXCObject& object) -> Result {
    if (!object.type().isOrDerivesFrom(className)) {
      return {JX_ERROR_WRONG_CLASS,
              std::string(argument) + " must be a " + className + ", not a " + classOf(object)};
    }
    copy = object.values();
    return JX_OK;
  });
}

Result notANumber(const char* field) {
  return {JX_ERROR_INVALID_NUMBER, std::string(field) + " must be a finite decimal number"};
}

}  // namespace jx::c
