// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <type_traits>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXDynamicStore;
class JXJsonSink;

/// Base class of the objects that an application can extend with its own keys: events, items,
/// products and context blocks. Additional properties come first in the object's JSON; a field with
/// the same key overrides them. Adding a key again replaces its value.
///
/// An event, an item and a product belong to one thread at a time; the context blocks and the user
/// block are thread-safe. A JSON object that was added is shared, not copied, and not synchronised.
class JX_API JXAdditionalProperties {
 public:
  /// Returns a new object without properties. Never null.
  static std::shared_ptr<JXAdditionalProperties> init();
  /// Returns a new object without properties that several threads may use. Never null.
  static std::shared_ptr<JXAdditionalProperties> initShared();
  virtual ~JXAdditionalProperties() = default;
  JXAdditionalProperties(const JXAdditionalProperties&) = delete;
  JXAdditionalProperties& operator=(const JXAdditionalProperties&) = delete;

  /// Returns all additional properties, never null. For an event, an item or a product this is the
  /// object itself; for an object that several threads may use it is a copy.
  JXJsonObject getAdditionalProperties() const;
  /// Writes the JSON entries of this object to `sink`: the additional properties, overridden by the
  /// fields.
  void writeEntries(JXJsonSink& sink) const;

  /// Adds a string. A null key or value is ignored; an empty key is valid.
  void addAdditionalProperty_withStringValue(const JXString& key, const JXString& value);
  /// Adds a number exactly, without rounding. A null key and NaN are ignored.
  void addAdditionalProperty_withNumberValue(const JXString& key, const JXDecimal& value);
  /// Adds a Boolean. A null key is ignored. Accepts only `bool`, so that pointers do not convert.
  template <typename Bool, typename = std::enable_if_t<std::is_same_v<Bool, bool>>>
  void addAdditionalProperty_withBoolValue(const JXString& key, Bool value) {
    addValue(key, value);
  }
  /// Adds a JSON object by reference: entries added to `value` later are sent too. A null key or
  /// value is ignored.
  void addAdditionalProperty_withDictValue(const JXString& key, const JXJsonObject& value);
  /// Adds every entry of `entries`; null is ignored.
  void addAdditionalProperty(const JXJsonObject& entries);
  /// Adds every pair that `store` contains now.
  void addAdditionalProperty(const JXDynamicStore& store);

 protected:
  /// Whether several threads may use the object at once.
  enum class Sharing { OneThread, AnyThread };
  explicit JXAdditionalProperties(Sharing sharing = Sharing::OneThread);

  /// Argument of the constructors that `make` calls, which only initialisers can create.
  struct InitKey {
    explicit InitKey() = default;
  };
  /// Creates an object and its reference count with one allocation.
  template <typename Object>
  static std::shared_ptr<Object> make() {
    return std::make_shared<Object>(InitKey());
  }

  /// Writes the object's own fields to `sink`, in order.
  virtual void writeOwnEntries(JXJsonSink& sink) const;
  /// Returns the additional properties of an object that belongs to one thread, without a copy;
  /// null if none was ever added.
  const JXJsonObject& extraProperties() const { return additionalProperties_; }
  /// Returns the additional properties of `object` as they are now. An object that several threads
  /// may use yields a copy, or null if it has none.
  static JXJsonObject extrasOf(const JXAdditionalProperties& object);
  /// Returns a new JSON object with the additional properties. Never null.
  JXJsonObject copyOfProperties() const;
  /// Returns a new JSON object: the additional properties, overridden by the fields.
  JXJsonObject newJsonObject() const;

  /// The base class part of a context block's `init`. Returns false on failure; the block then
  /// cancels its initialisation and leaves its start guard unchanged.
  virtual bool baseInit() { return true; }

 private:
  void addValue(const JXString& key, const JXJsonValue& value);
  JXJsonObject& properties() const;
  /// Calls `operation` with the additional properties, under the mutex if there is one.
  template <typename Operation>
  void change(const Operation& operation);

  struct Guard {
    std::mutex mutex;
    std::atomic<bool> hasProperties{false};  ///< read without the mutex for each event
  };

  std::unique_ptr<Guard> guard_;  ///< null for an object of one thread
  /// Null until it is first needed, because most items and products have none.
  mutable JXJsonObject additionalProperties_{nullptr};
};

}  // namespace jx
