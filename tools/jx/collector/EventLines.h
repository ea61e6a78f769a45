// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"

namespace jx {

/// Serialises an event as one line of JSON with a line end. The line contains everything that
/// another collector needs to store the same bytes.
std::string eventToLine(const StoredEvent& event);

/// Parses a line that eventToLine() wrote: the request, its repeats and its times. On failure,
/// returns an error that names the invalid field.
Result<StoredEvent> eventFromLine(std::string_view line);

}  // namespace jx
