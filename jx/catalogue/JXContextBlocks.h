// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "jx/core/json/JXJsonValue.h"

namespace jx {

struct JXContextBlock;

/// One entry of a context block.
struct JXContextField {
  std::string_view key;
  JXJsonValue::Kind kind;
  bool isRequired;              ///< true if every event has the key
  const JXContextBlock* block;  ///< the entries of an object; null for another type
};

/// A block that the library adds to every event, such as the device.
struct JXContextBlock {
  std::string_view key;
  std::vector<JXContextField> fields;
  /// The string that may replace the block; empty if there is none.
  std::string_view replacement = {};
};

/// Returns the blocks of the event's JSON object itself, which every event has; other blocks are
/// nested in them.
const std::vector<const JXContextBlock*>& topLevelContextBlocks();

}  // namespace jx
