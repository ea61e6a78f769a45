// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventIntake.h"

#include <chrono>
#include <cstdio>
#include <exception>

#include "tools/jx/collector/ConnectionStream.h"
#include "tools/jx/collector/EventJson.h"
#include "tools/jx/collector/WallClock.h"

namespace jx {
namespace {

// Longer than any client is expected to wait. After that, the connection is closed.
constexpr std::chrono::hours kHang{1};

// Delay in seconds that a device waits after a failure of the sink.
constexpr const char* kSinkRetryAfter = "5";

std::string queryOf(const std::string& target) {
  const std::size_t mark = target.find('?');
  return mark == std::string::npos ? std::string() : target.substr(mark + 1);
}

// Applies the delay and the connection faults. Returns false when the connection is closed and no
// response can be sent.
bool applyFault(const Fault& fault, ConnectionStream& connection) {
  const bool hangs = fault.action == Fault::Action::Hang;
  const std::chrono::milliseconds time = hangs ? std::chrono::milliseconds(kHang) : fault.delay;
  const bool hasGone = time.count() > 0 && connection.waitInterruptibly(-1, time) ==
                                               ConnectionStream::WakeReason::Closed;
  if (!hasGone && !hangs && fault.action == Fault::Action::Respond) return true;
  connection.abort();
  return false;
}

}  // namespace

void EventIntake::install(HttpServer& server) {
  server.onPost("/events",
                [this](const httplib::Request& request, const std::string& body,
                       httplib::Response& response) { receive(request, body, response); });
}

void EventIntake::receive(const httplib::Request& request, const std::string& body,
                          httplib::Response& response) const {
  const std::optional<Fault> fault = faults_.take();
  if (!fault) return store(request, body, response);
  if (!applyFault(*fault, HttpServer::connection())) return;
  if (!fault->rejects()) store(request, body, response);
  // A status that accepts the event must not replace the 500 of an event that was not stored, nor
  // the 503 of one that the sink did not accept.
  if (fault->status && (fault->rejects() || response.status == 200)) {
    response.status = *fault->status;
  }
  if (fault->retryAfter) {
    response.headers.erase("Retry-After");
    response.set_header("Retry-After", *fault->retryAfter);
  }
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
  // Validate before the store takes its lock, because a large body takes time.
  const ValidationResult validation = validate(received);
  const Result<std::int64_t> id = store_.add(received, validation);
  response.status = id ? 200 : 500;
  if (!id) std::fprintf(stderr, "jx collector: %s; responded with 500\n", id.error().text.c_str());
  if (!id) return;
  if (isStrict_ && !validation.isValid()) {
    response.status = 422;
    response.set_content(diagnosticsToJson(validation.diagnostics.kept()), "application/json");
    return;
  }
  const Done passed = passToSink({*id, received, validation});
  if (passed) return;
  std::fprintf(stderr, "jx collector: %s; responded with 503\n", passed.error().text.c_str());
  response.status = 503;
  response.set_header("Retry-After", kSinkRetryAfter);
}

ValidationResult EventIntake::validate(const ReceivedRequest& request) const {
  validating_.acquire();
  const std::shared_ptr<void> release(nullptr, [this](void*) { validating_.release(); });
  return ValidationResult::of(request.query, request.body);
}

Done EventIntake::passToSink(const AcceptedEvent& event) const {
  if (!sink_) return done();
  try {
    return sink_->accept(event);
  } catch (const std::exception& error) {
    return Error{std::string("event sink failed: ") + error.what()};
  } catch (...) {
    return Error{"event sink failed"};
  }
}

}  // namespace jx
