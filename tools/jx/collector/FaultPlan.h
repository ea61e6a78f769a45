// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventBroadcaster.h"

namespace jx {

/// A fault that the collector injects into the response to a device.
struct Fault {
  enum class Action {
    Respond,  ///< responds with the status; without one, responds normally
    Reset,    ///< resets the connection
    Hang,     ///< sends no response until the client gives up
  };

  Action action = Action::Respond;
  std::chrono::milliseconds delay{0};  ///< delay before the action
  std::optional<int> status;
  std::optional<std::string> retryAfter;

  /// True when the fault prevents the event from being stored.
  bool rejects() const {
    return action != Action::Respond || (status && (*status < 200 || *status > 299));
  }
};

/// The armed fault, if any, and the number of requests that it affects. Thread-safe.
class FaultPlan {
 public:
  /// Publishes every change to `broadcaster`, which must outlive the plan.
  explicit FaultPlan(EventBroadcaster& broadcaster) : broadcaster_(broadcaster) {}

  /// Arms the fault that a JSON object defines ("next", "delay_ms", "status", "retry_after",
  /// "action"), or clears the armed one ("clear": true). On failure, returns an error and changes
  /// nothing.
  Done set(std::string_view json);
  /// Clears the armed fault.
  void clear();
  /// Returns the fault for the next request and counts it; nullopt when no fault is armed.
  std::optional<Fault> take();
  /// Returns the armed fault and the number of affected requests: {"armed":null,"met":2}.
  std::string toJson() const;

 private:
  std::string asJson() const;
  void publish();

  EventBroadcaster& broadcaster_;
  mutable std::mutex mutex_;
  std::optional<Fault> armed_;
  std::int64_t next_ = 0;          // remaining requests; 0 means until changed
  std::int64_t appliedCount_ = 0;  // requests affected since the fault was armed
};

}  // namespace jx
