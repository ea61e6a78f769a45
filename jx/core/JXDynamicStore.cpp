// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXDynamicStore.h"

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
  if (!key.isPresent()) return {};  // its view is that of the empty key
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

JXJsonObject JXDynamicStore::entries() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.mutableCopy();
}

}  // namespace jx
