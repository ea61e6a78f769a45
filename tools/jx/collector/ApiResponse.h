// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"

namespace jx {

/// The headers of every answer on the page's port.
void setWebHeaders(httplib::Response& response);
void answerJson(httplib::Response& response, int status, const std::string& json);
void answerFailure(httplib::Response& response, int status, const std::string& text);

/// Digits only, within 63 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text);

/// The filters that stand in the parameters of a request: after, before, name, class, good,
/// session, text, since, limit. `maxLimit` bounds the last one. Fails with what is wrong.
Result<EventQuery> filtersOf(const httplib::Request& request, std::int64_t maxLimit);

}  // namespace jx
