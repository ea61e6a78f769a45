// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

#include "jx/platform/JXApi.h"

namespace jx {

class JXJsonArrayNode;
class JXJsonValue;

/// A JSON array: a handle that shares one list of values with its copies. A null handle has no
/// values and ignores changes. Not synchronised.
class JX_API JXJsonArray {
 public:
  /// Creates an empty array.
  JXJsonArray();
  /// Creates a null handle.
  JXJsonArray(std::nullptr_t) noexcept {}
  /// Creates an array of the given values, such as `{"drama", 2}`; skips absent values. Braces
  /// around one array create an array that contains it; parentheses copy the handle.
  JXJsonArray(std::initializer_list<JXJsonValue> values);

  /// Returns false for a null handle; true for an array, including an empty one.
  bool isPresent() const noexcept { return node_ != nullptr; }
  /// Returns true when both handles share the same values, or both are null.
  bool isSameAs(const JXJsonArray& other) const noexcept { return node_ == other.node_; }

  /// Appends `value`; ignores an absent value.
  void append(JXJsonValue value);
  /// Inserts `value` before the one at `index`, or appends it if there is none; ignores an absent
  /// value.
  void insert(std::size_t index, JXJsonValue value);
  /// Removes the value at `index` and returns it, absent if out of range.
  JXJsonValue removeAt(std::size_t index);
  /// Removes all values, for all handles that share them.
  void clear();
  /// Returns the number of values; 0 for a null handle.
  std::size_t size() const noexcept;
  /// Returns the value at `index`, absent if out of range.
  JXJsonValue at(std::size_t index) const;
  /// Returns the values in order; valid until this array changes or its last handle is destroyed.
  const std::vector<JXJsonValue>& values() const noexcept;

 private:
  friend class JXJsonArrayNode;
  friend class JXJsonTextSink;
  std::shared_ptr<JXJsonArrayNode> node_;
};

}  // namespace jx
