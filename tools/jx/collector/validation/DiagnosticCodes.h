// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

// Errors that concern the whole body.
inline constexpr std::string_view kNotUtf8 = "not_utf8";
inline constexpr std::string_view kNotJson = "not_json";
inline constexpr std::string_view kTooDeep = "too_deep";
inline constexpr std::string_view kTooLarge = "too_large";
inline constexpr std::string_view kNotAnObject = "not_an_object";
// Errors in an event.
inline constexpr std::string_view kUnknownName = "unknown_name";
inline constexpr std::string_view kMissingField = "missing_field";
inline constexpr std::string_view kWrongType = "wrong_type";
inline constexpr std::string_view kLossyNumber = "lossy_number";
inline constexpr std::string_view kWrongQuery = "wrong_query";
inline constexpr std::string_view kMissingContext = "missing_context";
// Warnings.
inline constexpr std::string_view kUnknownKey = "unknown_key";

/// Returns the kind with its article, for messages: "a string", "an object".
constexpr std::string_view nameOf(JsonNode::Kind kind) {
  switch (kind) {
    case JsonNode::Kind::Bool:
      return "true or false";
    case JsonNode::Kind::Number:
      return "a number";
    case JsonNode::Kind::String:
      return "a string";
    case JsonNode::Kind::Array:
      return "an array";
    case JsonNode::Kind::Object:
      return "an object";
    case JsonNode::Kind::Null:
    case JsonNode::Kind::Absent:
      break;
  }
  return "null";
}

}  // namespace jx
