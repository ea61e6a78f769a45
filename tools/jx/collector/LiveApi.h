// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {

/// How answers that wait for events keep time.
struct LiveTiming {
  std::chrono::milliseconds heartbeat{15'000};  ///< of a stream in which nothing happens
  std::chrono::milliseconds pause{40};  ///< between two parts of a stream: nobody reads faster
};

/// Answers that wait for what happens: the stream of arrivals, and waiting for a number of events.
/// Each takes a thread while it lasts, so there is a bound on them.
class LiveApi {
 public:
  /// Both outlive the server that this is installed in.
  LiveApi(EventStore& store, const FaultPlan& faults, std::size_t maxAnswers, LiveTiming timing)
      : store_(store), faults_(faults), maxAnswers_(maxAnswers), timing_(timing) {}

  /// Adds the routes; this object outlives the server.
  void install(HttpServer& server);

 private:
  class Seat;

  /// Null, with an answer set, when there is none.
  std::shared_ptr<Seat> takeSeat(httplib::Response& response);
  void stream(const httplib::Request& request, httplib::Response& response);
  void await(const httplib::Request& request, httplib::Response& response);
  Result<std::string> awaitEvents(EventQuery query, std::size_t count,
                                  std::chrono::milliseconds time);

  EventStore& store_;
  const FaultPlan& faults_;
  const std::size_t maxAnswers_;
  const LiveTiming timing_;
  std::atomic<std::size_t> answers_{0};
};

}  // namespace jx
