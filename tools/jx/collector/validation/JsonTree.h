// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/json/JXJsonValue.h"

namespace jx {

/// One value of a JSON document. Numbers keep their digits, so that reading them loses no
/// precision.
struct JsonNode {
  using Kind = JXJsonValue::Kind;

  std::string_view key;  ///< key in the parent object; empty for other values
  /// The decoded string, the digits of a number, or "true"/"false". Empty for other kinds.
  std::string_view text;
  std::uint32_t parent = 0;
  std::uint32_t end = 0;       ///< index after the last value inside this one
  std::uint32_t position = 0;  ///< position in the parent array or object
  Kind kind = Kind::Null;
};

/// An untrusted JSON document, parsed into one flat list of values in document order. Resource use
/// is bounded: documents nested deeper than `kMaxDepth`, or with more than `maxValues` values, are
/// rejected.
class JsonTree {
 public:
  static constexpr std::size_t kMaxDepth = 1000;
  static constexpr std::size_t kMaxValues = 250'000;

  enum class Problem { None, NotUtf8, NotJson, TooDeep, TooMany };

  /// Parses any bytes. On failure, problem() returns the cause.
  static JsonTree read(std::string_view text, std::size_t maxValues = kMaxValues);
  JsonTree(JsonTree&&) = default;
  JsonTree& operator=(JsonTree&&) = default;

  /// Returns why parsing failed, or None. Unless it is None, nodes() is empty.
  Problem problem() const { return problem_; }
  const std::vector<JsonNode>& nodes() const { return nodes_; }
  const JsonNode& node(std::uint32_t index) const { return nodes_[index]; }

  bool isObject(std::uint32_t index) const { return node(index).kind == JsonNode::Kind::Object; }
  /// Returns the index of the value under `key`. For a duplicate key, that is the last value, which
  /// is the one that JSON readers keep. Returns nullopt when the key is missing or `object` is not
  /// an object.
  std::optional<std::uint32_t> find(std::uint32_t object, std::string_view key) const;
  /// Returns the number of values directly inside an array or object.
  std::size_t sizeOf(std::uint32_t container) const;
  /// Returns the path of a value: "items[0].product.name"; empty for the root.
  std::string pathOf(std::uint32_t index) const;
  /// Returns the path that a key missing from `object` would have.
  std::string pathOf(std::uint32_t object, std::string_view key) const;

 private:
  class Builder;

  JsonTree() = default;
  bool parse(std::string_view text, Builder& builder);

  Problem problem_ = Problem::None;
  std::vector<JsonNode> nodes_;
  std::unique_ptr<std::string> text_;  // owns the bytes that the nodes refer to
};

/// Calls `visit` with the index of each value directly inside `container`.
template <typename Visit>
void forEachIn(const JsonTree& tree, std::uint32_t container, const Visit& visit) {
  const std::uint32_t end = tree.node(container).end;
  for (std::uint32_t child = container + 1; child < end; child = tree.node(child).end)
    visit(child);
}

}  // namespace jx
