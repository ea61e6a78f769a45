// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "jx/core/json/JXJsonValue.h"

namespace jx {

/// Base of object and array nodes: destroys a deeply nested value without deep recursion.
class JXJsonNode {
 protected:
  /// Destroys `value`. Deeply nested objects and arrays are destroyed one after the other instead
  /// of recursively.
  static void release(JXJsonValue&& value) noexcept;
};

/// The shared entries of a JXJsonObject.
class JXJsonObjectNode : JXJsonNode {
 public:
  JXJsonObjectNode() = default;
  JXJsonObjectNode(const JXJsonObjectNode& other) = default;
  JXJsonObjectNode& operator=(const JXJsonObjectNode&) = delete;
  ~JXJsonObjectNode();

  std::size_t find(std::string_view key) const;
  void set(std::string_view key, JXJsonValue&& value);
  JXJsonValue removeAt(std::size_t position);
  void clear();

  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  std::vector<JXJsonEntry> entries;

 private:
  void rebuildIndex();

  // Maps the hash of a key to its positions. JSON blocks have few keys and use a linear search;
  // only a large object (the application's own data) uses the index.
  static constexpr std::size_t kIndexFrom = 64;
  std::unordered_multimap<std::size_t, std::size_t> index_;
};

/// The shared values of a JXJsonArray.
class JXJsonArrayNode : JXJsonNode {
 public:
  JXJsonArrayNode() = default;
  JXJsonArrayNode(const JXJsonArrayNode&) = delete;
  JXJsonArrayNode& operator=(const JXJsonArrayNode&) = delete;
  ~JXJsonArrayNode();

  std::vector<JXJsonValue> values;
};

}  // namespace jx
