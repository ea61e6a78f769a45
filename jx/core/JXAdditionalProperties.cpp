// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXAdditionalProperties.h"

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXUtils.h"
#include "jx/core/json/JXJsonTreeSink.h"

namespace jx {
std::shared_ptr<JXAdditionalProperties> JXAdditionalProperties::init() {
  return std::shared_ptr<JXAdditionalProperties>(new JXAdditionalProperties());
}

std::shared_ptr<JXAdditionalProperties> JXAdditionalProperties::initShared() {
  return std::shared_ptr<JXAdditionalProperties>(new JXAdditionalProperties(Sharing::AnyThread));
}

JXAdditionalProperties::JXAdditionalProperties(Sharing sharing)
    : guard_(sharing == Sharing::AnyThread ? std::make_unique<Guard>() : nullptr) {}

JXJsonObject& JXAdditionalProperties::properties() const {
  if (!additionalProperties_.isPresent()) additionalProperties_ = JXJsonObject();
  return additionalProperties_;
}

JXJsonObject JXAdditionalProperties::getAdditionalProperties() const {
  return guard_ ? copyOfProperties() : properties();
}

JXJsonObject JXAdditionalProperties::copyOfProperties() const {
  const JXJsonObject extras = extrasOf(*this);
  // The extras of an object of several threads are a copy already.
  if (guard_ && extras.isPresent()) return extras;
  return extras.isPresent() ? extras.mutableCopy() : JXJsonObject();
}

template <typename Operation>
void JXAdditionalProperties::change(const Operation& operation) {
  if (!guard_) return operation(properties());
  if (JXForkedChild::ignores("JXAdditionalProperties")) return;
  const std::lock_guard<std::mutex> lock(guard_->mutex);
  guard_->hasProperties = true;
  operation(properties());
}

void JXAdditionalProperties::writeEntries(JXJsonSink& sink) const {
  const auto fields = [this](JXJsonSink& into) { writeOwnEntries(into); };
  // Without a copy of the handle for an object of one thread: an event may have a hundred items.
  if (guard_) {
    writeOver(extrasOf(*this), sink, fields);
  } else {
    writeOver(additionalProperties_, sink, fields);
  }
}

JXJsonObject JXAdditionalProperties::extrasOf(const JXAdditionalProperties& object) {
  if (!object.guard_) return object.additionalProperties_;
  if (!object.guard_->hasProperties || JXForkedChild::ignores("JXAdditionalProperties"))
    return nullptr;
  const std::lock_guard<std::mutex> lock(object.guard_->mutex);
  if (object.additionalProperties_.size() == 0) return nullptr;
  return object.additionalProperties_.mutableCopy();
}

void JXAdditionalProperties::writeOwnEntries(JXJsonSink&) const {}

JXJsonObject JXAdditionalProperties::newJsonObject() const {
  const JXJsonObject object = copyOfProperties();
  JXJsonTreeSink sink(object);
  writeOwnEntries(sink);
  return object;
}

void JXAdditionalProperties::addAdditionalProperty_withStringValue(const JXString& key,
                                                                   const JXString& value) {
  if (!key.isPresent()) return;
  change([&](JXJsonObject& properties) {
    JXUtils::setString_forKey_onDict(value, key.view(), properties);
  });
}

void JXAdditionalProperties::addAdditionalProperty_withNumberValue(const JXString& key,
                                                                   const JXDecimal& value) {
  addValue(key, value);
}

void JXAdditionalProperties::addValue(const JXString& key, const JXJsonValue& value) {
  if (!key.isPresent() || !value.isPresent()) return;
  change([&](JXJsonObject& properties) { properties.set(key.view(), value); });
}

void JXAdditionalProperties::addAdditionalProperty_withDictValue(const JXString& key,
                                                                 const JXJsonObject& value) {
  if (!key.isPresent()) return;
  change([&](JXJsonObject& properties) {
    JXUtils::setJson_forKey_onDict(value, key.view(), properties);
  });
}

void JXAdditionalProperties::addAdditionalProperty(const JXJsonObject& entries) {
  if (entries.size() == 0) return;
  change([&](JXJsonObject& properties) {
    // Its own entries are present already, and the loop must not modify the object that it
    // iterates over.
    if (entries.isSameAs(properties)) return;
    for (const JXJsonEntry& entry : entries.entries())
      properties.set(entry.key.view(), entry.value);
  });
}

void JXAdditionalProperties::addAdditionalProperty(const JXDynamicStore& store) {
  if (!store.isEmpty()) addAdditionalProperty(store.entries());
}

}  // namespace jx
