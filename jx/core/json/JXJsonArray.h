// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "jx/platform/JXApi.h"

namespace jx {

class JXJsonArrayNode;
class JXJsonValue;

/// A JSON array: a handle that shares one list of values with its copies. An absent handle holds
/// nothing and ignores what is put into it. Not synchronised.
class JX_API JXJsonArray {
 public:
  /// A new empty array.
  JXJsonArray();
  /// No array at all.
  JXJsonArray(std::nullptr_t) noexcept {}

  /// True when there is an array, the empty one included.
  bool isPresent() const noexcept { return node_ != nullptr; }
  /// True when both handles share the same values, or both are absent.
  bool isSameAs(const JXJsonArray& other) const noexcept { return node_ == other.node_; }

  /// Appends `value`; an absent value is left out.
  void append(JXJsonValue value);
  /// How many values there are; 0 when absent.
  std::size_t size() const noexcept;
  /// The value at `index`, absent beyond the end.
  JXJsonValue at(std::size_t index) const;
  /// The values in order; valid until this array changes or its last handle ends.
  const std::vector<JXJsonValue>& values() const noexcept;

 private:
  friend class JXJsonArrayNode;
  friend class JXJsonTextSink;
  std::shared_ptr<JXJsonArrayNode> node_;
};

}  // namespace jx
