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

/// An event as one line of JSON, with a line end: all that another collector needs to keep it, byte
/// for byte.
std::string eventToLine(const StoredEvent& event);

/// The other way round: the request, its repeats and its times. Fails with what is wrong.
Result<StoredEvent> eventFromLine(std::string_view line);

}  // namespace jx
