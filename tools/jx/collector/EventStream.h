// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "tools/jx/collector/ConnectionStream.h"
#include "tools/jx/collector/EventStore.h"
#include "tools/jx/collector/FaultPlan.h"

namespace jx {

/// One stream of server-sent events (SSE): arrivals, repeats, resets and faults, as they happen.
/// Reads the store at the client's pace and buffers at most one part of the response.
class EventStream {
 public:
  /// Subscribes on construction. The stream starts after the row ID `after`; nullopt starts with
  /// the next event. `heartbeat` is the interval of comment lines on a silent stream; `pause` is
  /// the minimum interval between two parts. `store` and `faults` must outlive the stream.
  EventStream(EventStore& store, const FaultPlan& faults, std::optional<std::int64_t> after,
              std::chrono::milliseconds heartbeat, std::chrono::milliseconds pause);

  /// Sends one part. Returns false when the client no longer accepts data.
  using Write = std::function<bool(const std::string& part)>;
  /// Sends events until the client disconnects or falls too far behind, or the server stops.
  void run(ConnectionStream& connection, const Write& write);

 private:
  /// Returns the pending entries; nullopt when the stream must end.
  std::optional<std::string> nextPart();
  /// Appends arrivals up to the row `newest`, as many as fit into one part. Returns false on
  /// failure.
  bool addArrivals(std::int64_t newest, std::string& part);

  EventStore& store_;
  EventBroadcaster::Subscription subscription_;
  const std::chrono::milliseconds heartbeat_;
  const std::chrono::milliseconds pause_;
  std::int64_t last_ = 0;
  std::string faults_;    // state at the start of the stream
  bool hasMore_ = false;  // the last part did not contain all arrivals
};

}  // namespace jx
