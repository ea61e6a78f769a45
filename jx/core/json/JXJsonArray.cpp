// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonArray.h"

#include <algorithm>
#include <utility>

#include "jx/core/json/JXJsonNode.h"

namespace jx {

JXJsonArray::JXJsonArray() : node_(std::make_shared<JXJsonArrayNode>()) {}

void JXJsonArray::append(JXJsonValue value) {
  if (node_ && value.isPresent()) node_->values.push_back(std::move(value));
}

JXJsonArray::JXJsonArray(std::initializer_list<JXJsonValue> values) : JXJsonArray() {
  for (const JXJsonValue& value : values)
    append(value);
}

void JXJsonArray::insert(std::size_t index, JXJsonValue value) {
  if (!node_ || !value.isPresent()) return;
  const auto position = static_cast<std::ptrdiff_t>(std::min(index, size()));
  node_->values.insert(node_->values.begin() + position, std::move(value));
}

JXJsonValue JXJsonArray::removeAt(std::size_t index) {
  if (index >= size()) return {};
  JXJsonValue removed = std::move(node_->values[index]);
  node_->values.erase(node_->values.begin() + static_cast<std::ptrdiff_t>(index));
  return removed;
}

void JXJsonArray::clear() {
  if (!node_) return;
  // Destroyed last, because a value may own the last handle of this array.
  const std::shared_ptr<JXJsonArrayNode> node = node_;
  const std::vector<JXJsonValue> removed = std::move(node->values);
  node->values.clear();
}

std::size_t JXJsonArray::size() const noexcept { return node_ ? node_->values.size() : 0; }

JXJsonValue JXJsonArray::at(std::size_t index) const {
  return index < size() ? node_->values[index] : JXJsonValue();
}

const std::vector<JXJsonValue>& JXJsonArray::values() const noexcept {
  static const std::vector<JXJsonValue> none;
  return node_ ? node_->values : none;
}

}  // namespace jx
