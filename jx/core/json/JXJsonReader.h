// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The result of parsing JSON text.
struct JX_API JXJsonReading {
  JXJsonValue value;  ///< absent on error
  std::string error;  ///< error message, empty on success
  /// Position of the error, in bytes from the start; 0 on success.
  std::size_t errorOffset = 0;
};

/// Parses JSON text and keeps numbers exact, as their digits. A duplicate key gets its last value.
/// Errors: data after the value, invalid UTF-8, unpaired surrogate escapes, nesting deeper than
/// `kMaxDepth`, and numbers whose exponent makes them longer than 4,096 digits. A byte order mark
/// at the start is skipped.
class JX_API JXJsonReader {
 public:
  /// The maximum nesting depth of objects and arrays.
  static constexpr std::size_t kMaxDepth = 1'000;

  /// Parses one value. Never throws because of the text's content. Thread-safe.
  static JXJsonReading read(std::string_view text);

 private:
  class Parser;
};

}  // namespace jx
