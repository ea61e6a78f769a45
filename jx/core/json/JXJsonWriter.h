// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The layout of JSON text: on one line, or one line per entry.
enum class JXJsonStyle { Compact, Pretty };

/// JSON text and the number of values omitted from it.
struct JX_API JXJsonText {
  /// The JSON, UTF-8.
  std::string text;
  /// The number of values omitted with their keys: circular references, values nested deeper than
  /// `JXJsonWriter::kMaxDepth`, and values that would make the text longer than `kMaxBytes`.
  std::size_t leftOut = 0;
};

/// Serialises JSON as UTF-8. The text is always valid JSON: invalid UTF-8 becomes the replacement
/// character, numbers are written as their stored digits. Pretty text has one line per entry and an
/// indentation of two spaces per level.
class JX_API JXJsonWriter {
 public:
  /// The maximum nesting depth of objects and arrays.
  static constexpr std::size_t kMaxDepth = 512;
  /// The maximum length of the text, in bytes.
  static constexpr std::size_t kMaxBytes = 32u * 1024 * 1024;

  /// Serialises an object; "{}" for a null handle.
  static JXJsonText write(const JXJsonObject& object, JXJsonStyle style);
};

}  // namespace jx
