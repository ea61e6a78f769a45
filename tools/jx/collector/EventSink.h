// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {

/// An event that the collector has stored and accepts. Valid during the call of the sink.
struct AcceptedEvent {
  std::int64_t id;  ///< row ID in the store; the same for each repeat of an event ID
  const ReceivedRequest& request;
  const ValidationResult& validation;  ///< metadata and diagnostics; the event may be invalid
};

/// Receives each accepted event, for example to forward it. Called on the threads of the events
/// server, several at once, without a lock. The device waits for the response during the call.
class EventSink {
 public:
  virtual ~EventSink() = default;

  /// Called after the event was stored and before the response is sent. An error or an exception
  /// makes the response 503 with Retry-After, so the device keeps the event and sends it again.
  /// Repeats, such as those after an error or a lost response, are passed again: ignore those that
  /// are already processed. Not called for a request that the response rejects (strict mode,
  /// injected faults), that could not be stored, or that is imported.
  virtual Done accept(const AcceptedEvent& event) = 0;
};

}  // namespace jx
