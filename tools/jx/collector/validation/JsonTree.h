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

namespace jx {

/// One value of a JSON text. Numbers keep their digits, so that nothing is lost by looking at them.
struct JsonNode {
  enum class Kind : std::uint8_t { Null, Bool, Number, String, Array, Object };

  std::string_view key;  ///< in the object that holds it; empty elsewhere
  std::string_view
      text;  ///< of a string its text, of a number its digits, of a bool "true"/"false"
  std::uint32_t parent = 0;
  std::uint32_t end = 0;       ///< index behind the last value inside this one
  std::uint32_t position = 0;  ///< in the array or object that holds it
  Kind kind = Kind::Null;
};

/// A JSON text from anyone, read into one flat list in the order of the text. What it takes is
/// bounded: values nested deeper than `kMaxDepth`, and more values than it is told, are refused.
class JsonTree {
 public:
  static constexpr std::size_t kMaxDepth = 1000;
  static constexpr std::size_t kMaxValues = 250'000;

  enum class Problem { None, NotUtf8, NotJson, TooDeep, TooMany };

  static JsonTree read(std::string_view text, std::size_t maxValues = kMaxValues);
  JsonTree(JsonTree&&) = default;
  JsonTree& operator=(JsonTree&&) = default;

  /// When it is not None, there are no values.
  Problem problem() const { return problem_; }
  const std::vector<JsonNode>& nodes() const { return nodes_; }
  const JsonNode& node(std::uint32_t index) const { return nodes_[index]; }

  bool isObject(std::uint32_t index) const { return node(index).kind == JsonNode::Kind::Object; }
  /// The entry of an object; when the key stands there more than once, the last one, which is what
  /// a reader keeps. Absent when there is none, or `object` is no object.
  std::optional<std::uint32_t> find(std::uint32_t object, std::string_view key) const;
  /// How many values an array or an object holds.
  std::size_t sizeOf(std::uint32_t container) const;
  /// Where a value stands: "items[0].product.name"; empty for the whole.
  std::string pathOf(std::uint32_t index) const;
  /// Where a key that is missing from an object would stand.
  std::string pathOf(std::uint32_t object, std::string_view key) const;

 private:
  class Builder;

  JsonTree() = default;
  bool parse(std::string_view text, Builder& builder);

  Problem problem_ = Problem::None;
  std::vector<JsonNode> nodes_;
  std::unique_ptr<std::string> text_;  // what the nodes point into
};

/// Calls `visit` with the index of each value that a container holds directly.
template <typename Visit>
void forEachIn(const JsonTree& tree, std::uint32_t container, const Visit& visit) {
  const std::uint32_t end = tree.node(container).end;
  for (std::uint32_t child = container + 1; child < end; child = tree.node(child).end)
    visit(child);
}

}  // namespace jx
