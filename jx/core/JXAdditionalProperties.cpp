// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXAdditionalProperties.h"

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXUtils.h"
#include "jx/core/json/JXJsonTreeSink.h"

namespace jx {

std::shared_ptr<JXAdditionalProperties> JXAdditionalProperties::init() {
  return std::shared_ptr<JXAdditionalProperties>(new JXAdditionalProperties());
}

void JXAdditionalProperties::writeEntries(JXJsonSink& sink) const {
  writeOver(additionalProperties_, sink, [this](JXJsonSink& into) { writeOwnEntries(into); });
}

void JXAdditionalProperties::writeOwnEntries(JXJsonSink&) const {}

JXJsonObject JXAdditionalProperties::newJsonObject() const {
  const JXJsonObject object = additionalProperties_.mutableCopy();
  JXJsonTreeSink sink(object);
  writeOwnEntries(sink);
  return object;
}

void JXAdditionalProperties::addAdditionalProperty_withStringValue(const JXString& key,
                                                                   const JXString& value) {
  if (key.isPresent()) JXUtils::setString_forKey_onDict(value, key.view(), additionalProperties_);
}

void JXAdditionalProperties::addAdditionalProperty_withDictValue(const JXString& key,
                                                                 const JXJsonObject& value) {
  if (key.isPresent()) JXUtils::setJson_forKey_onDict(value, key.view(), additionalProperties_);
}

void JXAdditionalProperties::addAdditionalProperty(const JXJsonObject& entries) {
  // Its own entries are already present, and the loop must not modify the object it iterates over.
  if (entries.isSameAs(additionalProperties_)) return;
  for (const JXJsonEntry& entry : entries.entries()) {
    additionalProperties_.set(entry.key.view(), entry.value);
  }
}

void JXAdditionalProperties::addAdditionalProperty(const JXDynamicStore& store) {
  if (!store.isEmpty()) addAdditionalProperty(store.entries());
}

}  // namespace jx
