// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorApi.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "tools/jx/collector/Certificates.h"
#include "tools/jx/collector/CollectorPage.h"
#include "tools/jx/collector/EventJson.h"

namespace jx {
namespace {

constexpr std::int64_t kMaxLimit = 1000;
constexpr std::int64_t kPageEvents = 100;
constexpr std::string_view kEventsFolder = "/api/events/";

// Events come from outside: whatever they hold, the browser runs and loads nothing.
constexpr const char* kContentPolicy =
    "default-src 'none'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

void setHeaders(httplib::Response& response) {
  response.set_header("Content-Security-Policy", kContentPolicy);
  response.set_header("X-Content-Type-Options", "nosniff");
  response.set_header("Referrer-Policy", "no-referrer");
  response.set_header("Cache-Control", "no-store");
}

void answer(httplib::Response& response, int status, const std::string& json) {
  response.status = status;
  setHeaders(response);
  response.set_content(json, "application/json");
}

void answerFailure(httplib::Response& response, int status, const std::string& text) {
  answer(response, status, errorToJson(text));
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size() || value < 0) {
    return std::nullopt;
  }
  return value;
}

// Absent when a parameter is wrong.
std::optional<EventQuery> queryOf(const httplib::Request& request) {
  EventQuery query;
  if (request.has_param("limit")) {
    const auto limit = wholeNumber(request.get_param_value("limit"));
    if (!limit || *limit < 1 || *limit > kMaxLimit) return std::nullopt;
    query.limit = *limit;
  }
  if (request.has_param("after")) {
    query.after = wholeNumber(request.get_param_value("after"));
    if (!query.after) return std::nullopt;
  }
  if (request.has_param("name")) query.name = request.get_param_value("name");
  return query;
}

std::string hostWithoutPort(std::string host) {
  if (!host.empty() && host.front() == '[') {
    const std::size_t end = host.find(']');
    return end == std::string::npos ? host : host.substr(1, end - 1);
  }
  return host.substr(0, host.find(':'));
}

}  // namespace

CollectorApi::CollectorApi(EventStore& store, std::string authorityPem,
                           std::vector<std::string> names)
    : store_(store), authorityPem_(std::move(authorityPem)), names_(std::move(names)) {}

void CollectorApi::install(HttpServer& server) {
  using Request = httplib::Request;
  using Response = httplib::Response;
  server.onEveryRequest([this](const Request& request, Response& response) {
    return refuseForeignHost(request, response);
  });
  server.onGet(
      "/", [this](const Request&, const std::string&, Response& response) { showPage(response); });
  server.onGet("/api/events", [this](const Request& request, const std::string&,
                                     Response& response) { listEvents(request, response); });
  server.onGet(std::string(kEventsFolder) + "*",
               [this](const Request& request, const std::string&, Response& response) {
                 showEvent(request, response);
               });
  server.onGet("/api/summary", [this](const Request&, const std::string&, Response& response) {
    summarise(response);
  });
  server.onGet("/ca.pem", [this](const Request&, const std::string&, Response& response) {
    setHeaders(response);
    response.set_content(authorityPem_, "application/x-pem-file");
  });
}

bool CollectorApi::refuseForeignHost(const httplib::Request& request,
                                     httplib::Response& response) const {
  const std::string host = hostWithoutPort(request.get_header_value("Host"));
  const bool isOurs = isIpAddress(host) ||
                      std::any_of(names_.begin(), names_.end(), [&host](const std::string& name) {
                        return ::strcasecmp(name.c_str(), host.c_str()) == 0;
                      });
  if (isOurs) return false;
  answerFailure(response, 403, "this machine was addressed by a name that it does not know");
  return true;
}

void CollectorApi::listEvents(const httplib::Request& request, httplib::Response& response) const {
  const std::optional<EventQuery> query = queryOf(request);
  if (!query) {
    return answerFailure(response, 400, "limit is 1 to 1000, after a whole number");
  }
  const Outcome<std::vector<StoredEvent>> events = store_.list(*query);
  if (!events) return answerFailure(response, 500, events.failure().text);
  answer(response, 200, eventsToJson(*events, query->after.value_or(0)));
}

void CollectorApi::showEvent(const httplib::Request& request, httplib::Response& response) const {
  const auto id = wholeNumber(std::string_view(request.path).substr(kEventsFolder.size()));
  if (!id) return answerFailure(response, 404, "no such event");
  const Outcome<std::optional<StoredEvent>> event = store_.find(*id);
  if (!event) return answerFailure(response, 500, event.failure().text);
  if (!*event) return answerFailure(response, 404, "no such event");
  answer(response, 200, eventToJson(**event));
}

void CollectorApi::summarise(httplib::Response& response) const {
  const Outcome<EventSummary> summary = store_.summary();
  if (!summary) return answerFailure(response, 500, summary.failure().text);
  answer(response, 200, summaryToJson(*summary));
}

void CollectorApi::showPage(httplib::Response& response) const {
  EventQuery newest;
  newest.limit = kPageEvents;
  const Outcome<EventSummary> summary = store_.summary();
  const Outcome<std::vector<StoredEvent>> events = store_.list(newest);
  if (!summary) return answerFailure(response, 500, summary.failure().text);
  if (!events) return answerFailure(response, 500, events.failure().text);
  setHeaders(response);
  response.set_content(collectorPage(*summary, *events), "text/html; charset=utf-8");
}

}  // namespace jx
