// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// How a text is laid out: on one line, or with a line for each entry.
enum class JXJsonStyle { Compact, Pretty };

/// A JSON text and how many values had to stay out of it.
struct JX_API JXJsonText {
  /// The JSON, UTF-8.
  std::string text;
  /// Values that contain themselves, lie deeper than `JXJsonWriter::kMaxDepth` or would make the
  /// text longer than `kMaxBytes`: each was left out with its key.
  std::size_t leftOut = 0;
};

/// Writes JSON as UTF-8. The text is always valid JSON: bytes that are not UTF-8 become the
/// replacement character, numbers are written as the digits that they hold. Pretty text has a line
/// for each entry and two spaces for each level.
class JX_API JXJsonWriter {
 public:
  /// How deep objects and arrays are written.
  static constexpr std::size_t kMaxDepth = 512;
  /// How long a text may become, in bytes.
  static constexpr std::size_t kMaxBytes = 32u * 1024 * 1024;

  /// "{}" for an absent object.
  static JXJsonText write(const JXJsonObject& object, JXJsonStyle style);
};

}  // namespace jx
