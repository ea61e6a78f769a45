// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCObject.h"

#include <algorithm>
#include <utility>

#include "jx/events/JXEventClass.h"
#include "jx/events/JXFieldValue.h"

namespace jx::c {

JXCObject::JXCObject(const JXEventClass& type, std::shared_ptr<JXEvent> event)
    : object_(std::move(event)) {
  for (const JXEventClass* part = &type; part != nullptr; part = part->base) {
    classes_.push_back(part->className);
    tables_.push_back(part->written);
    if (part->unwritten != nullptr) tables_.push_back(part->unwritten);
  }
}

JXCObject::JXCObject(std::shared_ptr<JXItem> item)
    : object_(std::move(item)), classes_{"JXItem"}, tables_{&JXItem::fields()} {}

JXCObject::JXCObject(std::shared_ptr<JXProduct> product)
    : object_(std::move(product)), classes_{"JXProduct"}, tables_{&JXProduct::fields()} {}

bool JXCObject::isOf(std::string_view className) const {
  return std::find(classes_.begin(), classes_.end(), className) != classes_.end();
}

JXCObject::Field JXCObject::fieldOf(std::string_view property) const {
  for (const JXFieldTable* table : tables_) {
    const std::size_t field = table->findProperty(property);
    if (field != JXFieldTable::npos) return {table, field};
  }
  return {nullptr, 0};
}

std::string JXCObject::set(const Field& field, const JXJsonValue& value) {
  std::string error = field.table->set(base(), field.index, value);
  if (error.empty()) lists_.remove(field.info().property);
  return error;
}

JXJsonValue JXCObject::get(const Field& field) {
  applyLists();
  return field.table->get(base(), field.index);
}

JXJsonArray JXCObject::list(const Field& field) {
  const std::string_view property = field.info().property;
  if (!lists_.contains(property)) lists_.set(property, get(field));
  return lists_.get(property).array();
}

void JXCObject::addParameter(std::string_view key, const JXJsonValue& value) {
  JXJsonObject entries;
  entries.set(key, value);
  base().addAdditionalProperty(entries);
}

Result JXCObject::verify() {
  applyLists();
  if (const auto* const event = std::get_if<std::shared_ptr<JXEvent>>(&object_)) {
    const JXString failed = (*event)->firstFailedCondition();
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
  if (const auto* const item = std::get_if<std::shared_ptr<JXItem>>(&object_)) {
    return fieldvalue::toJson(**item);
  }
  const auto* const product = std::get_if<std::shared_ptr<JXProduct>>(&object_);
  return product != nullptr ? fieldvalue::toJson(*product) : JXJsonValue();
}

JXAdditionalProperties& JXCObject::base() {
  return std::visit([](const auto& object) -> JXAdditionalProperties& { return *object; }, object_);
}

void JXCObject::applyLists() {
  for (const JXJsonEntry& list : lists_.entries()) {
    const Field field = fieldOf(list.key.view());
    field.table->set(base(), field.index, list.value);
  }
  lists_.clear();
}

}  // namespace jx::c
