// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXDynamicStore;
class JXJsonSink;

/// Base of everything that a host may extend with keys of its own: events, items, products and
/// context blocks. The extra properties come first in the object's JSON, and an own field of the
/// same key replaces them. Adding a key twice keeps the later value. Not synchronised: one object
/// belongs to one thread at a time.
class JX_API JXAdditionalProperties {
 public:
  /// A new object without any property.
  static std::shared_ptr<JXAdditionalProperties> init();
  virtual ~JXAdditionalProperties() = default;
  JXAdditionalProperties(const JXAdditionalProperties&) = delete;
  JXAdditionalProperties& operator=(const JXAdditionalProperties&) = delete;

  /// All extra properties: this object's own, not a copy. Never absent.
  JXJsonObject getAdditionalProperties() const { return additionalProperties_; }
  /// Tells the sink what the JSON of this object holds: the extra properties, then the fields over
  /// them.
  void writeEntries(JXJsonSink& sink) const;

  /// An absent key or value is ignored; an empty key is a key.
  void addAdditionalProperty_withStringValue(const JXString& key, const JXString& value);
  /// Stores the very object; what is added to it later is sent too.
  void addAdditionalProperty_withDictValue(const JXString& key, const JXJsonObject& value);
  /// Adds every entry of the object; an absent object is ignored.
  void addAdditionalProperty(const JXJsonObject& entries);
  /// Adds every pair that the store holds now.
  void addAdditionalProperty(const JXDynamicStore& store);

 protected:
  JXAdditionalProperties() = default;

  /// Tells the sink the object's own fields, in order.
  virtual void writeOwnEntries(JXJsonSink& sink) const;
  const JXJsonObject& extraProperties() const { return additionalProperties_; }
  /// A new JSON object: the extra properties, then the fields over them.
  JXJsonObject newJsonObject() const;

  /// The base's part of a context block's `init`. False says that it failed; the block then gives
  /// up its own initialisation with its start guard as it stands.
  virtual bool baseInit() { return true; }

 private:
  JXJsonObject additionalProperties_;
};

}  // namespace jx
