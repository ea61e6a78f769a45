// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// The interface for devices: POST /events stores the request, whatever its body is, and answers
/// 200 with an empty body once it is stored.
class EventIntake {
 public:
  /// `store` outlives the server that this is installed in.
  explicit EventIntake(EventStore& store) : store_(store) {}

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  void take(const httplib::Request& request, const std::string& body,
            httplib::Response& response) const;

  EventStore& store_;
};

}  // namespace jx
