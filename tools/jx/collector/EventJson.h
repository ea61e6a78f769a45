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

// What the JSON interface says. Bytes that are not UTF-8 become U+FFFD.

void writeRow(JsonOut& out, const EventRow& row);
std::string rowToJson(const EventRow& row);
/// `last` is what to ask for events after, when there are none.
std::string rowsToJson(const std::vector<EventRow>& rows, std::int64_t last);
/// The same with the requests. A body that is not UTF-8 is repeated in base64.
std::string eventsToJson(const std::vector<StoredEvent>& events, std::int64_t last);
/// All there is to say about one event.
std::string eventToJson(const StoredEvent& event, const std::vector<Diagnostic>& reasons,
                        const std::optional<std::int64_t>& previous);
std::string reasonsToJson(const std::vector<Diagnostic>& reasons);
std::string summaryToJson(const EventSummary& summary);
std::string sessionsToJson(const std::vector<SessionSummary>& sessions);
std::string errorToJson(const std::string& text);

}  // namespace jx
