// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Handles requests of devices: POST /events stores the request, even if its body is invalid, and
/// then responds with 200 and an empty body. In strict mode it responds to an invalid event with
/// 422 and the diagnostics, but stores it anyway. An armed fault is applied first.
class EventIntake {
 public:
  /// `store` and `faults` must outlive the server in which this is installed.
  EventIntake(EventStore& store, FaultPlan& faults, bool isStrict)
      : store_(store), faults_(faults), isStrict_(isStrict) {}

  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  void receive(const httplib::Request& request, const std::string& body,
               httplib::Response& response) const;
  void store(const httplib::Request& request, const std::string& body,
             httplib::Response& response) const;

  EventStore& store_;
  FaultPlan& faults_;
  const bool isStrict_;
};

}  // namespace jx
