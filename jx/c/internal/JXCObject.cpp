// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCObject.h"

#include <type_traits>
#include <utility>

#include "jx/events/JXEventClass.h"

namespace jx::c {
namespace {

constexpr std::string_view kParameters = "parameters";

}  // namespace

JXCEvent::JXCEvent(const JXEventClass& type, std::shared_ptr<JXEvent> event)
    : type_(type), event_(std::move(event)) {}

// The names are NUL-terminated constants.
const char* JXCEvent::className() const { return type_.className.data(); }

const JXFieldInfo* JXCEvent::fieldOf(std::string_view property) const {
  return type_.fieldOfProperty(property);
}

bool JXCEvent::isOf(std::string_view className) const { return type_.isOrDerivesFrom(className); }

std::string JXCEvent::set(const JXFieldInfo& field, const JXJsonValue& value) {
  std::string error = type_.setProperty(*event_, field.property, value);
  if (error.empty() && field.kind == JXFieldKind::Items) {
    lists_.set(field.property, value.array());  // null removes the list
  }
  return error;
}

Result JXCEvent::addItem(const JXFieldInfo& field, const JXCObject& item) {
  JXJsonArray list = lists_.get(field.property).array();
  if (!list.isPresent()) {
    list = JXJsonArray();
    lists_.set(field.property, list);
  }
  list.append(item.values());
  listsChanged_ = true;
  return JX_OK;
}

void JXCEvent::addParameter(std::string_view key, const JXJsonValue& value) {
  JXJsonObject entries;
  entries.set(key, value);
  event_->addAdditionalParameter(entries);
}

void JXCEvent::applyLists() {
  if (!listsChanged_) return;
  for (const JXJsonEntry& list : lists_.entries())
    type_.setProperty(*event_, list.key.view(), list.value);
  listsChanged_ = false;
}

Result JXCEvent::verify() {
  applyLists();
  const JXString failed = event_->firstFailedCondition();
  if (!failed.isPresent()) return JX_OK;
  return {JX_ERROR_INCOMPLETE, failed.toStdString()};
}

JXJsonObject JXCEvent::json() {
  applyLists();
  return event_->getJsonObject();
}

std::shared_ptr<JXEvent> JXCEvent::event() {
  applyLists();
  return event_;
}

template <typename Block>
const char* JXCBlock<Block>::className() const {
  return Block::blockClass().className.data();
}

template <typename Block>
const JXFieldInfo* JXCBlock<Block>::fieldOf(std::string_view property) const {
  return Block::blockClass().fieldOfProperty(property);
}

template <typename Block>
bool JXCBlock<Block>::isOf(std::string_view name) const {
  return name == className();
}

template <typename Block>
std::string JXCBlock<Block>::set(const JXFieldInfo& field, const JXJsonValue& value) {
  std::string error = Block::blockClass().setProperty(*block_, field.property, value);
  // A removed value is kept as JSON null, so that it is removed from a copy too.
  if (error.empty()) {
    values_.set(field.property, value.isPresent() ? value : JXJsonValue::null());
  }
  return error;
}

template <typename Block>
Result JXCBlock<Block>::addItem(const JXFieldInfo&, const JXCObject&) {
  return {JX_ERROR_WRONG_TYPE, std::string(className()) + " has no list of items"};
}

template <typename Block>
void JXCBlock<Block>::addParameter(std::string_view key, const JXJsonValue& value) {
  JXJsonObject entries;
  entries.set(key, value);
  block_->addAdditionalProperty(entries);
  JXJsonObject all = values_.get(kParameters).object().mutableCopy();
  if (!all.isPresent()) all = JXJsonObject();
  all.set(key, value);
  values_.set(kParameters, all);
}

template <typename Block>
Result JXCBlock<Block>::verify() {
  bool isValid = false;
  if constexpr (std::is_same_v<Block, JXItem>) {
    isValid = block_->verifyItem();
  } else {
    isValid = block_->verifyProduct();
  }
  if (isValid) return JX_OK;
  return {JX_ERROR_INCOMPLETE, std::is_same_v<Block, JXItem>
                                   ? "ID and quantity must be set, and product must be valid"
                                   : "ID, name and price must be set"};
}

template class JXCBlock<JXItem>;
template class JXCBlock<JXProduct>;

}  // namespace jx::c
