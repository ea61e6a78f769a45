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

/// A store of values by text key.
class JX_API IJXDynamicStore {
 public:
  virtual ~IJXDynamicStore() = default;
  /// Sets or replaces a value; an absent value removes the key, an absent key is ignored.
  virtual void addData_withValue(const JXString& key, const JXJsonValue& value) = 0;
  /// The value, absent when there is none.
  virtual JXJsonValue getData(const JXString& key) const = 0;
  /// Removes the key and returns the value that was there, absent when there was none.
  virtual JXJsonValue removeData(const JXString& key) = 0;
};

/// The store that the core and the library use: keeps its keys in the order in which they were
/// first set. Thread-safe; a nested JSON object that was stored is shared, and is the caller's to
/// keep to one thread.
class JX_API JXDynamicStore final : public IJXDynamicStore {
 public:
  /// A new empty store.
  static std::shared_ptr<JXDynamicStore> init();

  void addData_withValue(const JXString& key, const JXJsonValue& value) override;
  /// Adds every pair of the other store, replacing values of the same key.
  void addData(const JXDynamicStore& other);
  /// The same for the entries of a JSON object; an absent object is ignored.
  void addData(const JXJsonObject& entries);
  JXJsonValue getData(const JXString& key) const override;
  JXJsonValue removeData(const JXString& key) override;
  /// Removes every pair.
  void clearData();
  /// True when the store holds no pair.
  bool isEmpty() const;

  /// The texts under several keys as they stand at one moment, in the order of the keys; absent
  /// where there is none. `places` has an element for each key and remembers where the key stands,
  /// so that asking again needs no search; zeros will do the first time.
  void getStrings(const std::string_view* keys, std::size_t count, std::size_t* places,
                  JXString* texts) const;

  /// A copy of all pairs.
  JXJsonObject entries() const;

 private:
  JXDynamicStore() = default;

  mutable std::mutex mutex_;
  JXJsonObject entries_;
};

}  // namespace jx
