// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/ClientSlots.h"
#include "tools/jx/collector/EventRecords.h"

namespace jx {

/// Sets the headers common to all responses on the web port.
void setWebHeaders(httplib::Response& response);
/// Sets the status and a JSON body.
void sendJson(httplib::Response& response, int status, const std::string& json);
/// Sets the status and the body {"error": text}.
void sendError(httplib::Response& response, int status, const std::string& text);

/// Returns a slot for the client of `request`. Returns null and sets a response with status 429 or
/// 503 when none is free.
std::shared_ptr<ClientSlots::Slot> acquireSlot(ClientSlots& slots, const httplib::Request& request,
                                               httplib::Response& response);

/// Parses a non-negative integer of at most 63 bits. Returns nullopt for anything else.
std::optional<std::int64_t> wholeNumber(std::string_view text);

/// Reads the filters from the parameters of a request: after, before, name, class, good, session,
/// text, since and limit. `maxLimit` is the largest valid limit. On failure, returns an error that
/// names the invalid parameter.
Result<EventQuery> filtersOf(const httplib::Request& request, std::int64_t maxLimit);

}  // namespace jx
