// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <semaphore>
#include <utility>

#include "tools/jx/collector/EventSink.h"
#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Handles requests of devices: POST /events stores the request, even if its body is invalid, and
/// then responds with 200 and an empty body. In strict mode it responds to an invalid event with
/// 422 and the diagnostics, but stores it anyway. An armed fault is applied first. An accepted
/// event is passed to the sink; if the sink fails, the response is 503 with Retry-After.
class EventIntake {
 public:
  /// `store` and `faults` must outlive the server in which this is installed. `sink` may be null.
  EventIntake(EventStore& store, FaultPlan& faults, bool isStrict, std::shared_ptr<EventSink> sink)
      : store_(store), faults_(faults), isStrict_(isStrict), sink_(std::move(sink)) {}

  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  void receive(const httplib::Request& request, const std::string& body,
               httplib::Response& response) const;
  void store(const httplib::Request& request, const std::string& body,
             httplib::Response& response) const;

  /// Waits while too many other bodies are validated.
  ValidationResult validate(const ReceivedRequest& request) const;
  Done passToSink(const AcceptedEvent& event) const;

  static constexpr std::ptrdiff_t kMaxValidating = 8;

  EventStore& store_;
  FaultPlan& faults_;
  const bool isStrict_;
  const std::shared_ptr<EventSink> sink_;
  /// Validation needs up to 40 times the memory of a body.
  mutable std::counting_semaphore<> validating_{kMaxValidating};
};

}  // namespace jx
