// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Returns the string under `key`; nullopt when it is missing or not a string.
inline std::optional<std::string> stringMember(const JsonTree& tree, std::uint32_t object,
                                               std::string_view key) {
  const std::optional<std::uint32_t> value = tree.find(object, key);
  if (!value || tree.node(*value).kind != JsonNode::Kind::String) return std::nullopt;
  return std::string(tree.node(*value).text);
}

/// Returns the integer under `key`; nullopt when it is missing or not an integer.
inline std::optional<std::int64_t> integerMember(const JsonTree& tree, std::uint32_t object,
                                                 std::string_view key) {
  const std::optional<std::uint32_t> value = tree.find(object, key);
  if (!value || tree.node(*value).kind != JsonNode::Kind::Number) return std::nullopt;
  const std::string_view digits = tree.node(*value).text;
  std::int64_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isWhole = parsed.ec == std::errc() && parsed.ptr == digits.data() + digits.size();
  return isWhole ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// True when the value under `key` is missing or null.
inline bool isUnset(const JsonTree& tree, std::uint32_t object, std::string_view key) {
  const std::optional<std::uint32_t> value = tree.find(object, key);
  return !value || tree.node(*value).kind == JsonNode::Kind::Null;
}

}  // namespace jx
