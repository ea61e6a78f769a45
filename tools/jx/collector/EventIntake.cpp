// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventIntake.h"

#include <chrono>
#include <cstdio>

#include "tools/jx/collector/ConnectionStream.h"
#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/WallClock.h"

namespace jx {
namespace {

// Longer than any client waits; who waits longer is dropped.
constexpr std::chrono::hours kHang{1};

std::string queryOf(const std::string& target) {
  const std::size_t mark = target.find('?');
  return mark == std::string::npos ? std::string() : target.substr(mark + 1);
}

// Does to the client what the fault says, short of an answer. False when there is nobody left to
// answer.
bool suffer(const Fault& fault, ConnectionStream& connection) {
  const bool hangs = fault.action == Fault::Action::Hang;
  const std::chrono::milliseconds time = hangs ? std::chrono::milliseconds(kHang) : fault.delay;
  const bool hasGone =
      time.count() > 0 && connection.waitBetween(-1, time) == ConnectionStream::Woken::ByEnd;
  if (!hasGone && !hangs && fault.action == Fault::Action::Answer) return true;
  connection.abort();
  return false;
}

}  // namespace

void EventIntake::install(HttpServer& server) {
  server.onPost("/events", [this](const httplib::Request& request, const std::string& body,
                                  httplib::Response& response) { take(request, body, response); });
}

void EventIntake::take(const httplib::Request& request, const std::string& body,
                       httplib::Response& response) const {
  const std::optional<Fault> fault = faults_.take();
  if (!fault) return store(request, body, response);
  if (!suffer(*fault, HttpServer::connection())) return;
  if (!fault->refuses()) store(request, body, response);
  // What could not be stored must not be answered as if it were.
  if (fault->status && (fault->refuses() || response.status == 200)) {
    response.status = *fault->status;
  }
  if (fault->retryAfter) response.set_header("Retry-After", *fault->retryAfter);
}

void EventIntake::store(const httplib::Request& request, const std::string& body,
                        httplib::Response& response) const {
  ReceivedRequest received;
  received.receivedMs = wallClockMs();
  received.method = request.method;
  received.path = request.path;
  received.query = queryOf(request.target);
  received.headers.assign(request.headers.begin(), request.headers.end());
  received.body = body;
  // Judged before the store is asked for its lock: a large body takes a while.
  const ValidationResult validation = ValidationResult::of(received.query, received.body);
  const Result<std::int64_t> id = store_.add(received, validation);
  response.status = id ? 200 : 500;
  if (!id) std::fprintf(stderr, "jx collector: %s\n", id.error().text.c_str());
  if (!id || !isStrict_ || validation.isGood()) return;
  response.status = 422;
  response.set_content(reasonsToJson(validation.reasons.kept()), "application/json");
}

}  // namespace jx
