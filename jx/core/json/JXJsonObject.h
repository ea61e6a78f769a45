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
struct JXJsonEntry;

/// A JSON object: a handle that shares one list of key/value entries with its copies, so a nested
/// object that is stored and then extended shows the extension. Entries keep the order in which
/// their keys were first set. An absent handle holds nothing and ignores what is put into it. Not
/// synchronised: one object belongs to one thread at a time.
class JX_API JXJsonObject {
 public:
  /// A new empty object.
  JXJsonObject();
  /// No object at all.
  JXJsonObject(std::nullptr_t) noexcept {}

  /// True when there is an object, the empty one included.
  bool isPresent() const noexcept { return node_ != nullptr; }
  /// True when both handles share the same entries.
  bool isSameAs(const JXJsonObject& other) const noexcept { return node_ == other.node_; }

  /// Puts `value` under `key`, in the place of what was there; an absent value removes the key.
  void set(std::string_view key, JXJsonValue value);
  /// The value under `key`, absent when there is none.
  JXJsonValue get(std::string_view key) const;
  /// True when there is a value under `key`, JSON's null included.
  bool contains(std::string_view key) const;
  /// Removes the key and returns what was there, absent when nothing was.
  JXJsonValue remove(std::string_view key);
  /// Removes every entry, for all handles that share them.
  void clear();
  /// How many entries there are; 0 when absent.
  std::size_t size() const noexcept;

  /// The entries in order. The reference is valid until this object changes or its last handle
  /// ends; changing the object while walking it is not allowed.
  const std::vector<JXJsonEntry>& entries() const noexcept;

  /// A new object with the same entries; nested objects and arrays stay shared. Absent for an
  /// absent handle.
  JXJsonObject mutableCopy() const;

 private:
  friend class JXJsonObjectNode;
  friend class JXJsonTextSink;
  std::shared_ptr<JXJsonObjectNode> node_;
};

}  // namespace jx
