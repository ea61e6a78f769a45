// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "jx/platform/JXApi.h"

namespace jx {

class JXJsonObjectNode;
class JXJsonValue;
class JXString;
struct JXJsonEntry;

/// A JSON object: a handle that shares one list of key/value entries with its copies, so changes to
/// a nested object remain visible after it was stored. Entries keep the order in which their keys
/// were first set. A null handle has no entries and ignores changes. Not synchronised: one object
/// belongs to one thread at a time.
class JX_API JXJsonObject {
 public:
  /// Creates an empty object.
  JXJsonObject();
  /// Creates a null handle.
  JXJsonObject(std::nullptr_t) noexcept {}

  /// Returns false for a null handle; true for an object, including an empty one.
  bool isPresent() const noexcept { return node_ != nullptr; }
  /// Returns true when both handles share the same entries, or both are null.
  bool isSameAs(const JXJsonObject& other) const noexcept { return node_ == other.node_; }

  /// Sets `key` to `value`, replacing any value in its position; an absent value removes the key.
  void set(std::string_view key, JXJsonValue value);
  /// Returns the value of `key`, absent if there is none.
  JXJsonValue get(std::string_view key) const;
  /// Returns true when `key` has a value, including JSON null.
  bool contains(std::string_view key) const;
  /// Removes `key` and returns its value, absent if there was none.
  JXJsonValue remove(std::string_view key);
  /// Removes all entries, for all handles that share them.
  void clear();
  /// Returns the number of entries; 0 for a null handle.
  std::size_t size() const noexcept;

  /// Returns the entries in order. The reference is valid until this object changes or its last
  /// handle is destroyed. Do not change the object while iterating.
  const std::vector<JXJsonEntry>& entries() const noexcept;

  /// Returns a new object with the same entries; nested objects and arrays stay shared. Returns a
  /// null handle for a null handle.
  JXJsonObject mutableCopy() const;

 private:
  friend class JXDynamicStore;
  friend class JXJsonObjectNode;
  friend class JXJsonTextSink;

  std::shared_ptr<JXJsonObjectNode> node_;
};

}  // namespace jx
