// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonNode.h"

#include <functional>
#include <utility>

namespace jx {
namespace {

constexpr int kMaxReleaseDepth = 64;
thread_local int releaseDepth = 0;
thread_local std::vector<JXJsonValue>* pendingReleases = nullptr;

}  // namespace

void JXJsonNode::release(JXJsonValue&& value) noexcept {
  const bool nested =
      value.kind() == JXJsonValue::Kind::Object || value.kind() == JXJsonValue::Kind::Array;
  if (!nested) return;
  if (releaseDepth < kMaxReleaseDepth) {
    ++releaseDepth;
    { const JXJsonValue released = std::move(value); }
    --releaseDepth;
    return;
  }
  if (pendingReleases != nullptr) {
    pendingReleases->push_back(std::move(value));
    return;
  }
  // The first call at the maximum depth destroys the values that nested calls queue.
  std::vector<JXJsonValue> pending;
  pendingReleases = &pending;
  pending.push_back(std::move(value));
  while (!pending.empty()) {
    const JXJsonValue released = std::move(pending.back());
    pending.pop_back();
  }
  pendingReleases = nullptr;
}

JXJsonObjectNode::~JXJsonObjectNode() { clear(); }

std::size_t JXJsonObjectNode::find(std::string_view key) const {
  if (!index_.empty()) {
    const auto [first, last] = index_.equal_range(std::hash<std::string_view>{}(key));
    for (auto it = first; it != last; ++it) {
      if (entries[it->second].key.view() == key) return it->second;
    }
    return npos;
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].key.view() == key) return i;
  }
  return npos;
}

void JXJsonObjectNode::set(std::string_view key, JXJsonValue&& value) {
  const std::size_t position = find(key);
  if (position != npos) {
    // Destroyed after the assignment, because the new value may be inside the old one.
    JXJsonValue replaced = std::exchange(entries[position].value, std::move(value));
    release(std::move(replaced));
    return;
  }
  entries.push_back({JXString(key), std::move(value)});
  if (!index_.empty()) {
    index_.emplace(std::hash<std::string_view>{}(key), entries.size() - 1);
  } else if (entries.size() >= kIndexFrom) {
    rebuildIndex();
  }
}

JXJsonValue JXJsonObjectNode::removeAt(std::size_t position) {
  JXJsonValue removed = std::move(entries[position].value);
  entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(position));
  if (!index_.empty()) rebuildIndex();
  return removed;
}

void JXJsonObjectNode::clear() {
  index_.clear();
  std::vector<JXJsonEntry> removed = std::move(entries);
  entries.clear();
  for (JXJsonEntry& entry : removed)
    release(std::move(entry.value));
}

void JXJsonObjectNode::rebuildIndex() {
  index_.clear();
  if (entries.size() < kIndexFrom) return;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    index_.emplace(std::hash<std::string_view>{}(entries[i].key.view()), i);
  }
}

JXJsonArrayNode::~JXJsonArrayNode() {
  for (JXJsonValue& value : values)
    release(std::move(value));
}

}  // namespace jx
