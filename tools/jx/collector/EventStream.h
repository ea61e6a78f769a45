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

/// One stream of server-sent events: arrivals, repeats, resets and faults, as they happen. It reads
/// the store at the pace of its reader, so it holds no more than one part of the answer.
class EventStream {
 public:
  /// Watches from its making on. `after` is the row after which to begin; absent for what comes.
  EventStream(EventStore& store, const FaultPlan& faults, std::optional<std::int64_t> after,
              std::chrono::milliseconds heartbeat, std::chrono::milliseconds pause);

  /// False when the reader does not take it any more.
  using Write = std::function<bool(const std::string& part)>;
  /// Until the reader goes, falls too far behind, or the server stops.
  void run(ConnectionStream& connection, const Write& write);

 private:
  /// What is new, as text; absent when the stream must end.
  std::optional<std::string> nextPart();
  /// Adds arrivals up to the row `newest`, as many as fit into one part. False on a failure.
  bool addArrivals(std::int64_t newest, std::string& part);

  EventStore& store_;
  EventBroadcaster::Subscription subscription_;
  const std::chrono::milliseconds heartbeat_;
  const std::chrono::milliseconds pause_;
  std::int64_t last_ = 0;
  std::string faults_;    // as they were when the stream began
  bool hasMore_ = false;  // one part did not hold all
};

}  // namespace jx
