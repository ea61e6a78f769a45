// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXDynamicStore.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "jx/core/JXForkedChild.h"

namespace jx {
namespace {

// Returns whether the entry with this key is at `position`, after searching for it elsewhere.
bool findEntry(const std::vector<JXJsonEntry>& all, std::string_view key, std::size_t& position) {
  const auto hasKey = [&](const JXJsonEntry& entry) { return entry.key.view() == key; };
  if (position < all.size() && hasKey(all[position])) return true;
  position = static_cast<std::size_t>(std::find_if(all.begin(), all.end(), hasKey) - all.begin());
  return position < all.size();
}

bool isIgnored() { return JXForkedChild::ignores("JXDynamicStore"); }

}  // namespace

std::shared_ptr<JXDynamicStore> JXDynamicStore::init() {
  return std::shared_ptr<JXDynamicStore>(new JXDynamicStore());
}

void JXDynamicStore::addData_withValue(const JXString& key, const JXJsonValue& value) {
  if (!key.isPresent() || isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  entries_.set(key.view(), value);
}

void JXDynamicStore::addData(const JXDynamicStore& other) { addData(other.entries()); }

void JXDynamicStore::addData(const JXJsonObject& entries) {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  for (const JXJsonEntry& entry : entries.entries())
    entries_.set(entry.key.view(), entry.value);
}

JXJsonValue JXDynamicStore::getData(const JXString& key) const {
  // The view of a null key equals that of the empty key.
  if (!key.isPresent() || isIgnored()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.get(key.view());
}

JXJsonValue JXDynamicStore::removeData(const JXString& key) {
  if (!key.isPresent() || isIgnored()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.remove(key.view());
}

void JXDynamicStore::clearData() {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  entries_.clear();
}

bool JXDynamicStore::isEmpty() const {
  if (isIgnored()) return true;
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.size() == 0;
}

void JXDynamicStore::getStrings(const std::string_view* keys, std::size_t count,
                                std::size_t* positions, JXString* strings) const {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  const std::vector<JXJsonEntry>& all = entries_.entries();
  for (std::size_t i = 0; i < count; ++i) {
    const bool isFound = findEntry(all, keys[i], positions[i]);
    const JXString* const string = isFound ? all[positions[i]].value.asString() : nullptr;
    if (string != nullptr) {
      strings[i] = *string;
    } else {
      strings[i] = nullptr;
    }
  }
}

JXString JXDynamicStore::getString(std::string_view key, std::size_t& position) const {
  JXString string;
  getStrings(&key, 1, &position, &string);
  return string;
}

void JXDynamicStore::setString(std::string_view key, std::size_t& position, JXString string) {
  setStrings(&key, 1, &position, &string);
}

void JXDynamicStore::setStrings(const std::string_view* keys, std::size_t count,
                                std::size_t* positions, JXString* strings) {
  if (isIgnored()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  for (std::size_t i = 0; i < count; ++i) {
    const bool isFound = findEntry(entries_.entries(), keys[i], positions[i]);
    if (isFound && entries_.replaceString(positions[i], strings[i])) continue;
    entries_.set(keys[i], std::move(strings[i]));
  }
}

JXJsonObject JXDynamicStore::entries() const {
  if (isIgnored()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.mutableCopy();
}

}  // namespace jx
