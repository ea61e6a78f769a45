// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/validation/Diagnostics.h"

namespace jx {

class JsonOut;

// Serialises the responses of the JSON API. Bytes that are not UTF-8 become U+FFFD.

void writeRow(JsonOut& out, const EventRow& row);
std::string rowToJson(const EventRow& row);
/// Writes {"events": [...], "last": ID}. The parameter `last` is used when `rows` is empty;
/// otherwise it is the ID of the last row.
std::string rowsToJson(const std::vector<EventRow>& rows, std::int64_t last);
/// Same, with the requests. A body that is not UTF-8 is also included in Base64.
std::string eventsToJson(const std::vector<StoredEvent>& events, std::int64_t last);
/// Writes one event with its request, its diagnostics and the ID of the previous event.
std::string eventToJson(const StoredEvent& event, const std::vector<Diagnostic>& diagnostics,
                        const std::optional<std::int64_t>& previous);
std::string diagnosticsToJson(const std::vector<Diagnostic>& diagnostics);
std::string summaryToJson(const EventSummary& summary);
std::string sessionsToJson(const std::vector<SessionSummary>& sessions);
std::string errorToJson(const std::string& text);

}  // namespace jx
