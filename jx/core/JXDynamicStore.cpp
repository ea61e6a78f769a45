// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXDynamicStore.h"

#include <atomic>
#include <utility>
#include <variant>

#include "jx/core/JXForkedChild.h"
#include "jx/core/json/JXJsonNode.h"

namespace jx {
namespace {

bool isStoreIgnored() { return JXForkedChild::ignores("JXDynamicStore"); }

}  // namespace

std::shared_ptr<JXDynamicStore> JXDynamicStore::init() {
  return std::shared_ptr<JXDynamicStore>(new JXDynamicStore());
}

// Differs from the layouts of all stores, so that a place in one store is invalid in any other.
std::uint64_t JXDynamicStore::newLayout() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

template <typename Change>
void JXDynamicStore::change(const Change& change) {
  const std::lock_guard<std::mutex> lock(mutex_);
  layout_ = newLayout();
  change();
}

void JXDynamicStore::addData_withValue(const JXString& key, const JXJsonValue& value) {
  if (!key.isPresent() || isStoreIgnored()) return;
  change([&] { entries_.set(key.view(), value); });
}

void JXDynamicStore::addData(const JXDynamicStore& other) { addData(other.entries()); }

void JXDynamicStore::addData(const JXJsonObject& entries) {
  if (isStoreIgnored()) return;
  change([&] {
    for (const JXJsonEntry& entry : entries.entries())
      entries_.set(entry.key.view(), entry.value);
  });
}

JXJsonValue JXDynamicStore::getData(const JXString& key) const {
  // The view of a null key equals that of the empty key.
  if (!key.isPresent() || isStoreIgnored()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.get(key.view());
}

JXJsonValue JXDynamicStore::removeData(const JXString& key) {
  if (!key.isPresent() || isStoreIgnored()) return {};
  JXJsonValue removed;
  change([&] { removed = entries_.remove(key.view()); });
  return removed;
}

void JXDynamicStore::clearData() {
  if (isStoreIgnored()) return;
  change([&] { entries_.clear(); });
}

bool JXDynamicStore::isEmpty() const {
  if (isStoreIgnored()) return true;
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.size() == 0;
}

JXDynamicStore::Strings::Strings(JXDynamicStore* store)
    : store_(isStoreIgnored() ? nullptr : store) {
  if (store_ != nullptr) lock_ = std::unique_lock<std::mutex>(store_->mutex_);
}

// Returns null if the key has no string.
JXString* JXDynamicStore::Strings::find(std::string_view key, Place& place) const {
  if (store_ == nullptr) return nullptr;
  JXJsonObjectNode& node = *store_->entries_.node_;
  if (place.layout != store_->layout_) place = {node.find(key), store_->layout_};
  if (place.position == JXJsonObjectNode::npos) return nullptr;
  return std::get_if<JXString>(&node.entries[place.position].value.value_);
}

void JXDynamicStore::Strings::read(std::string_view key, Place& place, JXString& string) const {
  const JXString* const found = find(key, place);
  if (found != nullptr) {
    string = *found;
  } else {
    string = nullptr;
  }
}

std::string_view JXDynamicStore::Strings::view(std::string_view key, Place& place) const {
  const JXString* const found = find(key, place);
  return found != nullptr ? found->view() : std::string_view();
}

void JXDynamicStore::Strings::set(std::string_view key, Place& place, JXString string) {
  if (store_ == nullptr) return;
  JXString* const known = find(key, place);
  if (known != nullptr && string.isPresent()) {
    *known = std::move(string);
    return;
  }
  store_->layout_ = newLayout();
  store_->entries_.set(key, std::move(string));
}

JXJsonObject JXDynamicStore::entries() const {
  if (isStoreIgnored()) return {};
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.mutableCopy();
}

}  // namespace jx
