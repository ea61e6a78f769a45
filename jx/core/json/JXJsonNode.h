// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "jx/core/json/JXJsonValue.h"

namespace jx {

/// What object and array nodes share: ending a deeply nested value without deep recursion.
class JXJsonNode {
 protected:
  /// Takes the nested objects and arrays out of `value` when the nesting is deep, so that they end
  /// one after the other instead of inside each other.
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

  // Hash of the key to its positions. Blocks have few keys and are searched from the front; only a
  // large object (a host's own data) pays for an index.
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
