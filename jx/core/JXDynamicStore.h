// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
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

  /// Where a reader found a key, so that its next call needs no search. One for each key.
  struct Place {
    std::size_t position = 0;  ///< of the entry
    std::uint64_t layout = 0;  ///< 0 before the first search
  };

  /// Locks a store, to read and set several strings at one moment. While it exists, its thread must
  /// not call the store.
  class JX_API Strings {
   public:
    /// For a null store, all strings are null and changes are ignored.
    explicit Strings(JXDynamicStore* store);
    Strings(const Strings&) = delete;
    Strings& operator=(const Strings&) = delete;

    /// Replaces `string` by the one under `key`; null if there is none.
    void read(std::string_view key, Place& place, JXString& string) const;
    /// Returns the string under `key`, valid until a string is set; empty if there is none.
    std::string_view view(std::string_view key, Place& place) const;
    /// Sets or replaces the string under `key`; null removes the key.
    void set(std::string_view key, Place& place, JXString string);

   private:
    JXString* find(std::string_view key, Place& place) const;

    JXDynamicStore* const store_;
    std::unique_lock<std::mutex> lock_;
  };

  /// Returns a copy of all pairs.
  JXJsonObject entries() const;

 private:
  JXDynamicStore() = default;
  static std::uint64_t newLayout();
  template <typename Change>
  void change(const Change& change);

  mutable std::mutex mutex_;
  JXJsonObject entries_;
  std::uint64_t layout_ = newLayout();  ///< changes when a key is added or removed
};

}  // namespace jx
