// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ApiResponse.h"

#include <charconv>

#include "tools/jx/collector/EventJson.h"

namespace jx {
namespace {

// Events are untrusted input: the browser may run only the scripts of the web UI.
constexpr const char* kContentPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
    "img-src 'self' data:; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

// Leaves `number` unchanged when the parameter is not set. Returns false when it is not an integer.
bool readNumber(const httplib::Request& request, const char* name,
                std::optional<std::int64_t>& number) {
  if (!request.has_param(name)) return true;
  number = wholeNumber(request.get_param_value(name));
  return number.has_value();
}

void readText(const httplib::Request& request, const char* name, std::optional<std::string>& text) {
  if (request.has_param(name)) text = request.get_param_value(name);
}

}  // namespace

void setWebHeaders(httplib::Response& response) {
  response.set_header("Content-Security-Policy", kContentPolicy);
  response.set_header("X-Content-Type-Options", "nosniff");
  response.set_header("Referrer-Policy", "no-referrer");
  response.set_header("Cache-Control", "no-store");
}

void sendJson(httplib::Response& response, int status, const std::string& json) {
  response.status = status;
  setWebHeaders(response);
  response.set_content(json, "application/json");
}

void sendError(httplib::Response& response, int status, const std::string& text) {
  sendJson(response, status, errorToJson(text));
}

std::shared_ptr<ClientSlots::Slot> acquireSlot(ClientSlots& slots, const httplib::Request& request,
                                               httplib::Response& response) {
  ClientSlots::Acquired acquired = slots.acquire(request.remote_addr);
  if (acquired.slot) return std::move(acquired.slot);
  response.set_header("Retry-After", "5");
  sendError(response, acquired.status,
            acquired.status == 429 ? "too many open responses of this client"
                                   : "too many open responses");
  return nullptr;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size() || value < 0) {
    return std::nullopt;
  }
  return value;
}

Result<EventQuery> filtersOf(const httplib::Request& request, std::int64_t maxLimit) {
  EventQuery query;
  std::optional<std::int64_t> limit;
  if (!readNumber(request, "limit", limit) || (limit && (*limit < 1 || *limit > maxLimit))) {
    return Error{"limit must be between 1 and " + std::to_string(maxLimit)};
  }
  query.limit = limit.value_or(query.limit);
  if (!readNumber(request, "after", query.after)) {
    return Error{"after must be a non-negative integer"};
  }
  if (!readNumber(request, "before", query.before)) {
    return Error{"before must be a non-negative integer"};
  }
  if (!readNumber(request, "since", query.sinceMs)) {
    return Error{"since must be a time in milliseconds since the Unix epoch"};
  }
  if (request.has_param("good")) {
    const std::string good = request.get_param_value("good");
    if (good != "true" && good != "false") return Error{"good must be true or false"};
    query.good = good == "true";
  }
  readText(request, "name", query.name);
  readText(request, "class", query.className);
  readText(request, "session", query.session);
  readText(request, "text", query.text);
  return query;
}

}  // namespace jx
