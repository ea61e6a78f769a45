// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A store of JSON values by string key.
class JX_API IJXDynamicStore {
 public:
  virtual ~IJXDynamicStore() = default;
  /// Sets or replaces a value; a null value removes the key, a null key is ignored.
  virtual void addData_withValue(const JXString& key, const JXJsonValue& value) = 0;
  /// Returns the value stored under `key`; null when there is none.
  virtual JXJsonValue getData(const JXString& key) const = 0;
  /// Removes `key` and returns its value; null when there was none.
  virtual JXJsonValue removeData(const JXString& key) = 0;
};

/// The store that the library uses. Keeps its keys in the order in which they were first set.
/// Thread-safe; a stored JSON object is shared with the caller, who must use it on one thread at a
/// time.
class JX_API JXDynamicStore final : public IJXDynamicStore {
 public:
  /// Returns a new empty store. Never null.
  static std::shared_ptr<JXDynamicStore> init();

  void addData_withValue(const JXString& key, const JXJsonValue& value) override;
  /// Adds every pair of `other`, replacing values with the same key.
  void addData(const JXDynamicStore& other);
  /// Adds every entry of a JSON object, replacing values with the same key; null is ignored.
  void addData(const JXJsonObject& entries);
  JXJsonValue getData(const JXString& key) const override;
  JXJsonValue removeData(const JXString& key) override;
  /// Removes every pair.
  void clearData();
  /// Returns whether the store is empty.
  bool isEmpty() const;

  /// Reads the strings under `count` keys at one moment and writes them to `strings`, in the order
  /// of the keys; null for a missing key. `positions` has an element per key and caches the key's
  /// position, so that the next call needs no search; initialise it with zeros.
  void getStrings(const std::string_view* keys, std::size_t count, std::size_t* positions,
                  JXString* strings) const;

  /// Returns the string under `key`; null if there is none. `position` caches the key's position as
  /// in `getStrings`.
  JXString getString(std::string_view key, std::size_t& position) const;
  /// Sets or replaces the string under `key`; null removes the key. `position` as in `getString`.
  void setString(std::string_view key, std::size_t& position, JXString string);

  /// Sets or replaces the strings under `count` keys at one moment, in order, and moves them out of
  /// `strings`. Null removes the key. `positions` as in `getStrings`.
  void setStrings(const std::string_view* keys, std::size_t count, std::size_t* positions,
                  JXString* strings);

  /// Returns a copy of all pairs.
  JXJsonObject entries() const;

 private:
  JXDynamicStore() = default;

  mutable std::mutex mutex_;
  JXJsonObject entries_;
};

}  // namespace jx
