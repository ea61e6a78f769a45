// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// The interface for devices: POST /events stores the request, whatever its body is, and answers
/// 200 with an empty body once it is stored. A strict one answers a bad event with 422 and says
/// why; it is stored all the same. Before all that, a request may meet a fault.
class EventIntake {
 public:
  /// Both outlive the server that this is installed in.
  EventIntake(EventStore& store, FaultPlan& faults, bool isStrict)
      : store_(store), faults_(faults), isStrict_(isStrict) {}

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  void take(const httplib::Request& request, const std::string& body,
            httplib::Response& response) const;
  void store(const httplib::Request& request, const std::string& body,
             httplib::Response& response) const;

  EventStore& store_;
  FaultPlan& faults_;
  const bool isStrict_;
};

}  // namespace jx
