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

/// What the collector does to a device instead of taking its event.
struct Fault {
  enum class Action {
    Answer,  ///< answers with the status; without one, as always
    Reset,   ///< breaks the connection
    Hang,    ///< says nothing until the client gives up
  };

  Action action = Action::Answer;
  std::chrono::milliseconds delay{0};  ///< before any of it
  std::optional<int> status;
  std::optional<std::string> retryAfter;

  bool refuses() const {
    return action != Action::Answer || (status && (*status < 200 || *status > 299));
  }
};

/// The fault that is armed, if any, and for how many requests. Thread-safe.
class FaultPlan {
 public:
  /// The feed outlives the plan; it is told of every change.
  explicit FaultPlan(EventBroadcaster& feed) : feed_(feed) {}

  /// Arms what the JSON object says ("next", "delay_ms", "status", "retry_after", "action"), or
  /// clears everything ("clear": true). On failure nothing changes.
  Done set(std::string_view json);
  void clear();
  /// The fault that the next request meets.
  std::optional<Fault> take();
  /// What is armed: {"armed":null,"met":2}.
  std::string toJson() const;

 private:
  std::string asJson() const;
  void tell();

  EventBroadcaster& feed_;
  mutable std::mutex mutex_;
  std::optional<Fault> armed_;
  std::int64_t next_ = 0;  // 0: until it is changed
  std::int64_t met_ = 0;   // requests since it was armed
};

}  // namespace jx
