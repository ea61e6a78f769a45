// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/TransferApi.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "tools/jx/collector/ApiResponse.h"
#include "tools/jx/collector/EventImport.h"
#include "tools/jx/collector/EventLines.h"
#include "tools/jx/collector/HarReader.h"

namespace jx {
namespace {

constexpr std::int64_t kEventsInPart = 100;

}  // namespace

void TransferApi::install(HttpServer& server) {
  using Request = httplib::Request;
  using Response = httplib::Response;
  server.onGet("/api/export.ndjson",
               [this](const Request& request, const std::string&, Response& response) {
                 exportEvents(request, response,
                              {"application/x-ndjson", "events.ndjson", "", "", "", eventToLine});
               });
  server.onGet("/api/export.har",
               [this](const Request& request, const std::string&, Response& response) {
                 exportEvents(request, response,
                              {"application/json", "events.har", harHead(),
                               std::string(kHarBetween), std::string(kHarTail), harEntry});
               });
  server.onUpload("/api/import",
                  [this](const Request& request, const HttpServer::BodyReader& read,
                         Response& response) { importEvents(request, read, response); });
}

void TransferApi::exportEvents(const httplib::Request& request, httplib::Response& response,
                               const Format& format) {
  constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();
  Result<EventQuery> query = filtersOf(request, kNoLimit);
  if (!query) return sendError(response, 400, query.error().text);
  query->after = query->after.value_or(0);
  const std::int64_t limit = request.has_param("limit") ? query->limit : kNoLimit;
  const auto slot = acquireSlot(slots_, request, response);
  if (!slot) return;
  setWebHeaders(response);
  response.set_header("Content-Disposition", "attachment; filename=\"" + format.fileName + "\"");
  // Called once per part, because the events may not fit into memory.
  response.set_chunked_content_provider(
      format.contentType, [this, slot, query = *query, left = limit, format, isFirst = true](
                              std::size_t, httplib::DataSink& sink) mutable {
        query.limit = std::min(left, kEventsInPart);
        const Result<std::vector<StoredEvent>> events = store_.reading().list(query);
        // The response header is already sent, so an incomplete body is the only way to report
        // failure.
        if (!events) return false;
        std::string part = isFirst ? format.head : std::string();
        for (const StoredEvent& event : *events) {
          part += (isFirst ? "" : format.between) + format.write(event);
          isFirst = false;
          query.after = event.id;
        }
        left -= static_cast<std::int64_t>(events->size());
        if (events->empty() || left <= 0) {
          part += format.tail;
          if (!part.empty() && !sink.write(part.data(), part.size())) return false;
          sink.done();
          return true;
        }
        return sink.write(part.data(), part.size());
      });
}

void TransferApi::importEvents(const httplib::Request& request, const HttpServer::BodyReader& read,
                               httplib::Response& response) {
  const auto slot = acquireSlot(slots_, request, response);
  if (!slot) return;
  EventImport import(store_);
  const bool isWhole = read([&import](std::string_view part) { return import.consume(part); });
  if (isWhole) import.finish();
  int status = 200;
  if (!isWhole) status = 400;
  if (!import.error().empty()) status = 422;
  sendJson(response, status, import.toJson());
}

}  // namespace jx
