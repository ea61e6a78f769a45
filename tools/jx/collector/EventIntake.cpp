// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventIntake.h"

#include <chrono>
#include <cstdio>

namespace jx {
namespace {

std::int64_t nowMs() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::string queryOf(const std::string& target) {
  const std::size_t mark = target.find('?');
  return mark == std::string::npos ? std::string() : target.substr(mark + 1);
}

}  // namespace

void EventIntake::install(HttpServer& server) {
  server.onPost("/events", [this](const httplib::Request& request, const std::string& body,
                                  httplib::Response& response) { take(request, body, response); });
}

void EventIntake::take(const httplib::Request& request, const std::string& body,
                       httplib::Response& response) const {
  ReceivedRequest received;
  received.receivedMs = nowMs();
  received.method = request.method;
  received.path = request.path;
  received.query = queryOf(request.target);
  received.headers.assign(request.headers.begin(), request.headers.end());
  received.body = body;
  const Outcome<std::int64_t> id = store_.add(received);
  response.status = id ? 200 : 500;
  if (!id) std::fprintf(stderr, "jx collector: %s\n", id.failure().text.c_str());
}

}  // namespace jx
