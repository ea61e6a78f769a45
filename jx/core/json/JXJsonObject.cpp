// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonObject.h"

#include "jx/core/json/JXJsonNode.h"

namespace jx {

JXJsonObject::JXJsonObject() : node_(std::make_shared<JXJsonObjectNode>()) {}

void JXJsonObject::set(std::string_view key, JXJsonValue value) {
  if (!node_) return;
  if (value.isPresent()) {
    node_->set(key, std::move(value));
  } else {
    remove(key);
  }
}

JXJsonValue JXJsonObject::get(std::string_view key) const {
  if (!node_) return {};
  const std::size_t position = node_->find(key);
  return position == JXJsonObjectNode::npos ? JXJsonValue() : node_->entries[position].value;
}

bool JXJsonObject::contains(std::string_view key) const {
  return node_ && node_->find(key) != JXJsonObjectNode::npos;
}

JXJsonValue JXJsonObject::remove(std::string_view key) {
  if (!node_) return {};
  const std::size_t position = node_->find(key);
  return position == JXJsonObjectNode::npos ? JXJsonValue() : node_->removeAt(position);
}

void JXJsonObject::clear() {
  if (node_) node_->clear();
}

std::size_t JXJsonObject::size() const noexcept { return node_ ? node_->entries.size() : 0; }

const std::vector<JXJsonEntry>& JXJsonObject::entries() const noexcept {
  static const std::vector<JXJsonEntry> none;
  return node_ ? node_->entries : none;
}

JXJsonObject JXJsonObject::mutableCopy() const {
  JXJsonObject copy(nullptr);
  if (node_) copy.node_ = std::make_shared<JXJsonObjectNode>(*node_);
  return copy;
}

}  // namespace jx
