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

// Absent when the parameter is wrong.
std::optional<std::int64_t> parameter(const httplib::Request& request, const char* name,
                                      std::int64_t otherwise, std::int64_t most) {
  if (!request.has_param(name)) return otherwise;
  const std::optional<std::int64_t> number = wholeNumber(request.get_param_value(name));
  return number && *number <= most ? number : std::nullopt;
}

}  // namespace

// One of the bounded number of answers that may wait.
class LiveApi::Seat {
 public:
  explicit Seat(std::atomic<std::size_t>& taken) : taken_(taken) {}
  ~Seat() { --taken_; }
  Seat(const Seat&) = delete;
  Seat& operator=(const Seat&) = delete;

 private:
  std::atomic<std::size_t>& taken_;
};

void LiveApi::install(HttpServer& server) {
  using Request = httplib::Request;
  using Response = httplib::Response;
  server.onGet("/api/stream", [this](const Request& request, const std::string&,
                                     Response& response) { stream(request, response); });
  server.onGet("/api/wait", [this](const Request& request, const std::string&, Response& response) {
    await(request, response);
  });
}

std::shared_ptr<LiveApi::Seat> LiveApi::takeSeat(httplib::Response& response) {
  if (++answers_ <= maxAnswers_) return std::make_shared<Seat>(answers_);
  --answers_;
  response.set_header("Retry-After", "5");
  answerFailure(response, 503, "too many answers are waiting already");
  return nullptr;
}

void LiveApi::stream(const httplib::Request& request, httplib::Response& response) {
  Result<EventQuery> query = filtersOf(request, kMaxCount);
  if (!query) return answerFailure(response, 400, query.error().text);
  if (request.has_header("Last-Event-ID")) {
    query->after = wholeNumber(request.get_header_value("Last-Event-ID"));
    if (!query->after) return answerFailure(response, 400, "Last-Event-ID is a whole number");
  }
  std::shared_ptr<Seat> seat = takeSeat(response);
  if (!seat) return;
  setWebHeaders(response);
  // Watches from now on, so that nothing falls between the answer's head and its first part.
  auto events = std::make_shared<EventStream>(store_, faults_, query->after, timing_.heartbeat,
                                              timing_.pause);
  response.set_chunked_content_provider(
      "text/event-stream", [events, seat](std::size_t, httplib::DataSink& sink) {
        events->run(HttpServer::connection(), [&sink](const std::string& part) {
          return sink.write(part.data(), part.size());
        });
        sink.done();
        return true;
      });
}

void LiveApi::await(const httplib::Request& request, httplib::Response& response) {
  const Result<EventQuery> query = filtersOf(request, kMaxCount);
  if (!query) return answerFailure(response, 400, query.error().text);
  const auto count = parameter(request, "count", 1, kMaxCount);
  const auto seconds = parameter(request, "timeout", kSeconds, kMaxSeconds);
  if (!count || *count < 1) return answerFailure(response, 400, "count is 1 to 1000");
  if (!seconds) return answerFailure(response, 400, "timeout is 0 to 300 seconds");
  const std::shared_ptr<Seat> seat = takeSeat(response);
  if (!seat) return;
  const Result<std::string> json =
      awaitEvents(*query, static_cast<std::size_t>(*count), std::chrono::seconds(*seconds));
  if (!json) return answerFailure(response, 500, json.error().text);
  answerJson(response, 200, *json);
}

Result<std::string> LiveApi::awaitEvents(EventQuery query, std::size_t count,
                                         std::chrono::milliseconds time) {
  const Clock::time_point ends = Clock::now() + time;
  EventBroadcaster::Subscription subscription(store_.feed());
  std::vector<EventRow> found;
  query.after = query.after.value_or(0);
  for (;;) {
    const std::int64_t newest = subscription.take().last;
    query.limit = static_cast<std::int64_t>(count - found.size());
    const Result<std::vector<EventRow>> rows = store_.reading().rows(query);
    if (!rows) return rows.error();
    found.insert(found.end(), rows->begin(), rows->end());
    if (found.size() == count) break;
    // What was looked at once is not looked at again.
    query.after =
        std::max(*query.after, rows->empty() ? newest : std::max(newest, rows->back().id));
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(ends - Clock::now());
    if (left.count() <= 0) break;
    const auto woken = HttpServer::connection().waitBetween(subscription.fd(), left);
    if (woken == ConnectionStream::Woken::ByEnd) break;
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
