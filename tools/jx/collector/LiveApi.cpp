// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/LiveApi.h"

#include <algorithm>
#include <vector>

#include "tools/jx/collector/ApiResponse.h"
#include "tools/jx/collector/ConnectionStream.h"
#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/EventStream.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int64_t kMaxCount = 1000;
constexpr std::int64_t kMaxSeconds = 300;
constexpr std::int64_t kSeconds = 10;

// Returns `otherwise` when the parameter is not set, and nullopt when it is invalid.
std::optional<std::int64_t> parameter(const httplib::Request& request, const char* name,
                                      std::int64_t otherwise, std::int64_t most) {
  if (!request.has_param(name)) return otherwise;
  const std::optional<std::int64_t> number = wholeNumber(request.get_param_value(name));
  return number && *number <= most ? number : std::nullopt;
}

}  // namespace

void LiveApi::install(HttpServer& server) {
  using Request = httplib::Request;
  using Response = httplib::Response;
  server.onGet("/api/stream", [this](const Request& request, const std::string&,
                                     Response& response) { stream(request, response); });
  server.onGet("/api/wait", [this](const Request& request, const std::string&, Response& response) {
    await(request, response);
  });
}

void LiveApi::stream(const httplib::Request& request, httplib::Response& response) {
  Result<EventQuery> query = filtersOf(request, kMaxCount);
  if (!query) return sendError(response, 400, query.error().text);
  if (request.has_header("Last-Event-ID")) {
    query->after = wholeNumber(request.get_header_value("Last-Event-ID"));
    if (!query->after)
      return sendError(response, 400, "Last-Event-ID must be a non-negative integer");
  }
  const auto slot = acquireSlot(slots_, request, response);
  if (!slot) return;
  setWebHeaders(response);
  // Subscribes now, so that no event is lost between the response header and the first part.
  auto events = std::make_shared<EventStream>(store_, faults_, query->after, timing_.heartbeat,
                                              timing_.pause);
  response.set_chunked_content_provider(
      "text/event-stream", [events, slot](std::size_t, httplib::DataSink& sink) {
        events->run(HttpServer::connection(), [&sink](const std::string& part) {
          return sink.write(part.data(), part.size());
        });
        sink.done();
        return true;
      });
}

void LiveApi::await(const httplib::Request& request, httplib::Response& response) {
  const Result<EventQuery> query = filtersOf(request, kMaxCount);
  if (!query) return sendError(response, 400, query.error().text);
  const auto count = parameter(request, "count", 1, kMaxCount);
  const auto seconds = parameter(request, "timeout", kSeconds, kMaxSeconds);
  if (!count || *count < 1) return sendError(response, 400, "count must be between 1 and 1000");
  if (!seconds) return sendError(response, 400, "timeout must be between 0 and 300 seconds");
  const auto slot = acquireSlot(slots_, request, response);
  if (!slot) return;
  const Result<std::string> json =
      awaitEvents(*query, static_cast<std::size_t>(*count), std::chrono::seconds(*seconds));
  if (!json) return sendError(response, 500, json.error().text);
  sendJson(response, 200, *json);
}

Result<std::string> LiveApi::awaitEvents(EventQuery query, std::size_t count,
                                         std::chrono::milliseconds time) {
  const Clock::time_point ends = Clock::now() + time;
  EventBroadcaster::Subscription subscription(store_.broadcaster());
  std::vector<EventRow> found;
  query.after = query.after.value_or(0);
  for (;;) {
    const std::int64_t newest = subscription.take().last;
    query.limit = static_cast<std::int64_t>(count - found.size());
    const Result<std::vector<EventRow>> rows = store_.reading().rows(query);
    if (!rows) return rows.error();
    found.insert(found.end(), rows->begin(), rows->end());
    if (found.size() == count) break;
    // Do not read the same rows again. A list also ends early when its rows are large.
    query.after = rows->empty() ? std::max(*query.after, newest) : rows->back().id;
    if (!rows->empty()) continue;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(ends - Clock::now());
    if (left.count() <= 0) break;
    const auto woken = HttpServer::connection().waitInterruptibly(subscription.fd(), left);
    if (woken == ConnectionStream::WakeReason::Closed) break;
  }
  JsonOut out;
  out.beginObject().key("events").beginArray();
  for (const EventRow& row : found)
    writeRow(out, row);
  out.endArray()
      .member("last", found.empty() ? *query.after : found.back().id)
      .member("complete", found.size() == count)
      .endObject();
  return out.text();
}

}  // namespace jx
