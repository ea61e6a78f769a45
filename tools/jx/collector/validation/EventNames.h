// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

#include "jx/events/JXEventClass.h"

namespace jx {

/// Returns the class that writes events with this name, or null. All functions in this header are
/// thread-safe.
const JXEventClass* classOfEventName(std::string_view eventName);

/// Returns the known event name that a misspelt one probably refers to, or an empty string. The
/// known name differs only in case, in word separators, or by one letter that was omitted, added,
/// changed or swapped with its neighbour. Always empty for known names.
std::string_view suggestedName(std::string_view eventName);

/// Returns a hash of all event classes, their names, fields and conditions. When it changes, stored
/// events must be validated again.
std::int64_t schemaFingerprint();

}  // namespace jx
