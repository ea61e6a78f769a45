// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorApi.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "tools/jx/collector/ApiResponse.h"
#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/JsonOut.h"
#include "tools/jx/collector/PageFiles.h"
#include "tools/jx/collector/WallClock.h"

namespace jx {
namespace {

constexpr std::int64_t kMaxLimit = 1000;
constexpr std::int64_t kSessions = 200;
constexpr std::string_view kEventsFolder = "/api/events/";

}  // namespace

CollectorApi::CollectorApi(EventStore& store, std::string authorityPem)
    : store_(store), authorityPem_(std::move(authorityPem)) {}

void CollectorApi::setEndpoints(int eventsPort, std::string authorityFile) {
  eventsPort_ = eventsPort;
  authorityFile_ = std::move(authorityFile);
}

void CollectorApi::install(HttpServer& server) {
  using Request = httplib::Request;
  using Response = httplib::Response;
  installPage(server);
  server.onGet(
      "/api/events", [this](const Request& request, const std::string&, Response& response) {
        building_.acquire();
        const std::shared_ptr<void> release(nullptr, [this](void*) { building_.release(); });
        listEvents(request, response);
      });
  server.onGet(std::string(kEventsFolder) + "*", [this](const Request& request, const std::string&,
                                                        Response& response) {
    building_.acquire();
    const std::shared_ptr<void> release(nullptr, [this](void*) { building_.release(); });
    showEvent(request, response);
  });
  server.onGet("/api/summary", [this](const Request&, const std::string&, Response& response) {
    summarise(response);
  });
  server.onGet("/api/about", [this](const Request&, const std::string&, Response& response) {
    getEndpoints(response);
  });
  server.onGet("/api/sessions", [this](const Request& request, const std::string&,
                                       Response& response) { listSessions(request, response); });
  server.onPost("/api/reset", [this](const Request&, const std::string&, Response& response) {
    reset(response);
  });
  server.onGet("/ca.pem", [this](const Request&, const std::string&, Response& response) {
    setWebHeaders(response);
    response.set_content(authorityPem_, "application/x-pem-file");
  });
}

void CollectorApi::installPage(HttpServer& server) {
  for (const PageFile& file : pageFiles()) {
    const auto show = [&file](const httplib::Request&, const std::string&,
                              httplib::Response& response) {
      setWebHeaders(response);
      response.set_content(file.content.data(), file.content.size(), contentTypeOf(file.name));
    };
    if (file.name == "index.html") server.onGet("/", show);
    server.onGet(std::string("/").append(file.name), show);
  }
}

void CollectorApi::listEvents(const httplib::Request& request, httplib::Response& response) const {
  const Result<EventQuery> query = filtersOf(request, kMaxLimit);
  if (!query) return sendError(response, 400, query.error().text);
  const std::string view =
      request.has_param("view") ? request.get_param_value("view") : std::string("full");
  if (view != "full" && view != "row") return sendError(response, 400, "view must be full or row");
  // A text search can exceed its limit; other queries fail only on database errors.
  const int failed = query->text ? 503 : 500;
  const std::int64_t last = query->after.value_or(0);
  if (view == "row") {
    const Result<std::vector<EventRow>> rows = store_.reading().rows(*query);
    if (!rows) return sendError(response, failed, rows.error().text);
    return sendJson(response, 200, rowsToJson(*rows, last));
  }
  const Result<std::vector<StoredEvent>> events = store_.reading().list(*query);
  if (!events) return sendError(response, failed, events.error().text);
  sendJson(response, 200, eventsToJson(*events, last));
}

void CollectorApi::showEvent(const httplib::Request& request, httplib::Response& response) const {
  const auto id = wholeNumber(std::string_view(request.path).substr(kEventsFolder.size()));
  if (!id) return sendError(response, 404, "event not found");
  const Result<std::optional<StoredEvent>> event = store_.reading().find(*id);
  if (!event) return sendError(response, 500, event.error().text);
  if (!*event) return sendError(response, 404, "event not found");
  const Result<std::optional<std::int64_t>> previous = store_.reading().previousOf(**event);
  if (!previous) return sendError(response, 500, previous.error().text);
  const ReceivedRequest& kept = (*event)->request;
  const ValidationResult validation = ValidationResult::of(kept.query, kept.body);
  sendJson(response, 200, eventToJson(**event, validation.diagnostics.kept(), *previous));
}

void CollectorApi::getEndpoints(httplib::Response& response) const {
  sendJson(response, 200,
           JsonOut()
               .beginObject()
               .member("events_port", eventsPort_)
               .member("ca_file", authorityFile_)
               .endObject()
               .text());
}

void CollectorApi::summarise(httplib::Response& response) const {
  const Result<EventSummary> summary = store_.reading().summary(wallClockMs());
  if (!summary) return sendError(response, 500, summary.error().text);
  sendJson(response, 200, summaryToJson(*summary));
}

void CollectorApi::listSessions(const httplib::Request& request,
                                httplib::Response& response) const {
  Result<EventQuery> query = filtersOf(request, kMaxLimit);
  if (!query) return sendError(response, 400, query.error().text);
  if (!request.has_param("limit")) query->limit = kSessions;
  const Result<std::vector<SessionSummary>> sessions = store_.reading().sessions(query->limit);
  if (!sessions) return sendError(response, 500, sessions.error().text);
  sendJson(response, 200, sessionsToJson(*sessions));
}

void CollectorApi::reset(httplib::Response& response) const {
  const Result<std::int64_t> removed = store_.removeAll();
  if (!removed) return sendError(response, 500, removed.error().text);
  sendJson(response, 200, JsonOut().beginObject().member("removed", *removed).endObject().text());
}

}  // namespace jx
