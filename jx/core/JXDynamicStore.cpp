// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXDynamicStore.h"

#include <algorithm>
#include <vector>

namespace jx {

std::shared_ptr<JXDynamicStore> JXDynamicStore::init() {
  return std::shared_ptr<JXDynamicStore>(new JXDynamicStore());
}

void JXDynamicStore::addData_withValue(const JXString& key, const JXJsonValue& value) {
  if (!key.isPresent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  entries_.set(key.view(), value);
}

void JXDynamicStore::addData(const JXDynamicStore& other) { addData(other.entries()); }

void JXDynamicStore::addData(const JXJsonObject& entries) {
  const std::lock_guard<std::mutex> lock(mutex_);
  for (const JXJsonEntry& entry : entries.entries())
    entries_.set(entry.key.view(), entry.value);
}

JXJsonValue JXDynamicStore::getData(const JXString& key) const {
  if (!key.isPresent()) return {};  // its view equals that of the empty key
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.get(key.view());
}

JXJsonValue JXDynamicStore::removeData(const JXString& key) {
  if (!key.isPresent()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.remove(key.view());
}

void JXDynamicStore::clearData() {
  const std::lock_guard<std::mutex> lock(mutex_);
  entries_.clear();
}

bool JXDynamicStore::isEmpty() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.size() == 0;
}

void JXDynamicStore::getStrings(const std::string_view* keys, std::size_t count,
                                std::size_t* positions, JXString* strings) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  const std::vector<JXJsonEntry>& all = entries_.entries();
  for (std::size_t i = 0; i < count; ++i) {
    const auto hasKey = [&](const JXJsonEntry& entry) { return entry.key.view() == keys[i]; };
    if (positions[i] >= all.size() || !hasKey(all[positions[i]])) {
      const auto found = std::find_if(all.begin(), all.end(), hasKey);
      positions[i] = static_cast<std::size_t>(found - all.begin());
    }
    strings[i] = positions[i] < all.size() ? all[positions[i]].value.string() : JXString();
  }
}

JXJsonObject JXDynamicStore::entries() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.mutableCopy();
}

}  // namespace jx
