// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "jx/core/JXOutboxBounds.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Backoff, timeouts and delays of the delivery. A request that got no final response is retried.
struct JX_API JXRetryTimings {
  /// Longest backoff after the first failed attempt, in milliseconds. It doubles with each further
  /// failure up to `maxBackoff`; the actual backoff is a random part of it (full jitter). Default:
  /// 1 second. Limits: 0 to 365 days. A request that received a 5xx other than 503 is retried after
  /// 60 times this value.
  std::chrono::milliseconds initialBackoff{1'000};
  /// Longest backoff that the library chooses, in milliseconds; a Retry-After of the server may be
  /// longer. Default: 5 minutes. Limits: 0 to 365 days. A request that repeatedly receives a 5xx
  /// other than 503 waits up to 96 times this value.
  std::chrono::milliseconds maxBackoff{300'000};
  /// Longest Retry-After that is honoured, in milliseconds; a longer one is shortened to it.
  /// Default: 24 hours. Limits: 0 (ignores Retry-After) to 365 days.
  std::chrono::milliseconds maxRetryAfter{std::chrono::hours(24)};
  /// Time limit for establishing a connection, in milliseconds. Default: 10 seconds. Minimum: 1 ms.
  std::chrono::milliseconds connectTimeout{10'000};
  /// Time limit for one attempt, in milliseconds, from name resolution to the end of the response.
  /// Default: 30 seconds. Minimum: 1 ms.
  std::chrono::milliseconds requestTimeout{30'000};
  /// Longest time between a write and its sync to the disk, in milliseconds; a synced write
  /// survives a power loss. Default: 1 second. Limits: 0 to 365 days.
  std::chrono::milliseconds syncDelay{1'000};
  /// Longest time that requests are paused while the platform determines its user agent, in
  /// milliseconds. Default: 10 seconds. Limits: 0 to 365 days.
  std::chrono::milliseconds userAgentWait{10'000};
};

/// Outcome of one request.
enum class JXDeliveryOutcome { Delivered, Rejected, Dropped };

/// Reports the outcome of one request to the application.
struct JX_API JXDelivery {
  /// The outcome of the request.
  JXDeliveryOutcome outcome = JXDeliveryOutcome::Delivered;
  JXString eventId;  ///< the event's "event_id"; null when the body contains none
  int status = 0;    ///< HTTP status; 0 without a response
  JXString reason;   ///< human-readable reason, for a log; null when delivered
  JXDropReason dropReason = JXDropReason::None;  ///< reason of a dropped request; else None
};

/// Receives the outcome of each request: delivered, rejected, or dropped (queue limits, purge, or
/// not accepted by the queue). Called on the transfer thread, once per request, after the request
/// has left the queue. May call any JXNetworkManager operation; `flush` does not wait then.
/// Exceptions are caught and logged.
///
/// A dropped request is reported within `syncDelay`. It is only counted when 10,000 reports are
/// already pending, or when the process has begun to exit.
using JXDeliveryCallback = std::function<void(const JXDelivery&)>;

/// Counters since the start of this process, and the current state of the delivery.
struct JX_API JXDeliveryCounters {
  /// Counters of the queue.
  JXOutboxCounters outbox;
  std::uint64_t attempts = 0;  ///< attempts started
  std::uint64_t failures = 0;  ///< attempts that ended without a final response
  /// True while a stop, a start as disabled, the background or the user agent holds requests.
  bool paused = false;
};

}  // namespace jx
