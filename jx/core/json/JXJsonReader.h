// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// What reading a JSON text gave.
struct JX_API JXJsonReading {
  JXJsonValue value;  ///< absent when the text is no JSON
  std::string error;  ///< what is wrong, empty when nothing is
  /// Where it is wrong, in bytes from the start.
  std::size_t errorOffset = 0;
};

/// Reads JSON text with its numbers digit for digit. A key that stands twice in an object holds
/// its later value. Refused: text behind the value, bytes that are not UTF-8, escaped halves of a
/// surrogate pair, values nested deeper than `kMaxDepth`, and numbers whose exponent makes them
/// longer than 4,096 digits. A byte order mark at the start is skipped.
class JX_API JXJsonReader {
 public:
  /// How deep objects and arrays may be nested.
  static constexpr std::size_t kMaxDepth = 1'000;

  /// Reads one value. Never throws for what the text holds. Thread-safe.
  static JXJsonReading read(std::string_view text);

 private:
  class Parser;
};

}  // namespace jx
