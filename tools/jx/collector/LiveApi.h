// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "tools/jx/collector/ClientSlots.h"
#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// Intervals of responses that wait for events.
struct LiveTiming {
  std::chrono::milliseconds heartbeat{15'000};  ///< interval of comment lines on a silent stream
  std::chrono::milliseconds pause{40};          ///< minimum interval between two parts of a stream
};

/// Responses that wait for events: the event stream (SSE) and waiting for a number of events. Each
/// occupies a thread while it is open, so their number is limited.
class LiveApi {
 public:
  /// `store` and `faults` must outlive the server in which this is installed. `limits` contains
  /// the number of responses that wait at the same time, and those for one client.
  LiveApi(EventStore& store, const FaultPlan& faults, const HttpLimits& limits, LiveTiming timing)
      : store_(store),
        faults_(faults),
        slots_(limits.waiting, limits.waitingOfClient, limits.limitsLoopback),
        timing_(timing) {}

  /// Adds the routes to `server`. This object must outlive it.
  void install(HttpServer& server);

 private:
  void stream(const httplib::Request& request, httplib::Response& response);
  void await(const httplib::Request& request, httplib::Response& response);
  Result<std::string> awaitEvents(EventQuery query, std::size_t count,
                                  std::chrono::milliseconds time);

  EventStore& store_;
  const FaultPlan& faults_;
  ClientSlots slots_;
  const LiveTiming timing_;
};

}  // namespace jx
