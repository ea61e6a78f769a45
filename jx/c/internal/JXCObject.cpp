// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCObject.h"

#include <algorithm>
#include <iterator>

#include "jx/catalogue/JXFieldValue.h"
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

Result wrongType(const char* field, const std::string& rule) {
  return {JX_ERROR_WRONG_TYPE, std::string(field) + " " + rule};
}

}  // namespace

std::string JXCObject::set(const JXFieldInfo& field, const JXJsonValue& value) {
  std::string error = type_.setProperty(base(), field.property, value);
  if (error.empty()) lists_.remove(field.property);
  return error;
}

JXJsonValue JXCObject::get(const JXFieldInfo& field) {
  applyLists();
  return type_.getProperty(base(), field.property);
}

JXJsonArray JXCObject::list(const JXFieldInfo& field) {
  if (!lists_.contains(field.property)) lists_.set(field.property, get(field));
  return lists_.get(field.property).array();
}

void JXCObject::addParameter(std::string_view key, const JXJsonValue& value) {
  JXJsonObject entries;
  entries.set(key, value);
  base().addAdditionalProperty(entries);
}

Result JXCObject::verify() {
  const std::shared_ptr<JXEvent> checked = event();
  const std::string_view eventName = checked ? checked->name().view() : std::string_view();
  if (const JXCondition* const failed = type_.firstFailed(base(), eventName)) {
    return {JX_ERROR_INCOMPLETE, type_.describe(*failed)};
  }
  const auto* const item = std::get_if<std::shared_ptr<JXItem>>(&object_);
  if (item == nullptr) return JX_OK;
  const JXBlockClass& product = JXProduct::blockClass();
  const JXCondition* const failed = product.firstFailed(*(*item)->product());
  if (failed == nullptr) return JX_OK;
  return {JX_ERROR_INCOMPLETE, "product: " + product.describe(*failed)};
}

JXJsonObject JXCObject::json() {
  applyLists();
  return std::visit([](const auto& object) { return object->getJsonObject(); }, object_);
}

std::shared_ptr<JXEvent> JXCObject::event() {
  applyLists();
  const auto* const event = std::get_if<std::shared_ptr<JXEvent>>(&object_);
  return event != nullptr ? *event : nullptr;
}

JXJsonValue JXCObject::values() {
  applyLists();
  return fieldvalue::blockToJson(base(), *type_.written);
}

JXAdditionalProperties& JXCObject::base() {
  return std::visit([](const auto& object) -> JXAdditionalProperties& { return *object; }, object_);
}

void JXCObject::applyLists() {
  for (const JXJsonEntry& list : lists_.entries())
    type_.setProperty(base(), list.key.view(), list.value);
  lists_.clear();
}

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
      return {JX_ERROR_WRONG_CLASS, quoted(name) + " is not a field of " + object.className()};
    }
  }
  field = object.type().fieldOfProperty(property);
  if (field == nullptr) {
    return {JX_ERROR_UNKNOWN_FIELD, quoted(name) + " is not a field of " + object.className()};
  }
  const JXFieldKind kind = field->kind;
  if (kinds.size() == 0 || std::find(kinds.begin(), kinds.end(), kind) != kinds.end()) return JX_OK;
  return wrongType(name, kRules[static_cast<std::size_t>(kind)]);
}

Result JXCField::set(const JXJsonValue& value) const {
  const std::string error = object.set(info, value);
  return error.empty() ? JX_OK : wrongType(name, error);
}

Result copyOf(const jx_object* handle, const char* className, const char* argument,
              JXJsonValue& copy) {
  return with<JXCObject>(handle, JXHandleKind::Object, [&](JXCObject& object) -> Result {
    if (!object.type().isOrDerivesFrom(className)) {
      return {JX_ERROR_WRONG_CLASS,
              std::string(argument) + " must be a " + className + ", not a " + object.className()};
    }
    copy = object.values();
    return JX_OK;
  });
}

Result notANumber(const char* field) {
  return {JX_ERROR_INVALID_NUMBER, std::string(field) + " must be a finite decimal number"};
}

}  // namespace jx::c
