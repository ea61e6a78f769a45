// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// Returns the string "event_id" in the object "context" of a request body. Null when the body
/// contains none or is not valid JSON as JXJsonReader defines it. Of a duplicate key, the last
/// value counts. Scans the body once and builds no tree.
JXString eventIdOf(std::string_view body);
/// Returns the same string as a part of `body`, without allocating; empty if it has an escape.
std::string_view plainEventIdOf(std::string_view body) noexcept;

}  // namespace jx
