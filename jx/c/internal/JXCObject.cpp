// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCObject.h"

#include "jx/catalogue/JXFieldValue.h"

namespace jx::c {

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
  if (const std::shared_ptr<JXEvent> checked = event()) {
    const JXString failed = checked->firstFailedCondition();
    if (failed.isPresent()) return {JX_ERROR_INCOMPLETE, failed.toStdString()};
  } else if (const auto* const item = std::get_if<std::shared_ptr<JXItem>>(&object_)) {
    if (!(*item)->verifyItem()) {
      return {JX_ERROR_INCOMPLETE, "ID and quantity must be set, and product must be valid"};
    }
  } else if (!std::get<std::shared_ptr<JXProduct>>(object_)->verifyProduct()) {
    return {JX_ERROR_INCOMPLETE, "ID, name and price must be set"};
  }
  return JX_OK;
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

}  // namespace jx::c
