// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonArray.h"

#include "jx/core/json/JXJsonNode.h"

namespace jx {

JXJsonArray::JXJsonArray() : node_(std::make_shared<JXJsonArrayNode>()) {}

void JXJsonArray::append(JXJsonValue value) {
  if (node_ && value.isPresent()) node_->values.push_back(std::move(value));
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
