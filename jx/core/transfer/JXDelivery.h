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

/// When a request that got no lasting answer is tried again, and how long one try may take.
struct JX_API JXRetryTimings {
  std::chrono::milliseconds initialBackoff{1'000};  ///< doubles with each failed try
  std::chrono::milliseconds maxBackoff{300'000};    ///< that the library takes by itself
  /// The longest pause that a receiver may ask for.
  std::chrono::milliseconds maxRetryAfter{std::chrono::hours(24)};
  /// How long connecting may take.
  std::chrono::milliseconds connectTimeout{10'000};
  std::chrono::milliseconds requestTimeout{30'000};  ///< name resolution to the end of the answer
  std::chrono::milliseconds syncDelay{1'000};        ///< a write is durable after at most this
  std::chrono::milliseconds userAgentWait{10'000};   ///< requests are held for this at most
  /// What an earlier process left waits for this at the start, unless before that a request comes
  /// or the manager is told whether requests may leave: so that consent is asked for first.
  std::chrono::milliseconds startHold{1'000};
};

/// What became of one request.
enum class JXDeliveryOutcome { Delivered, Rejected, Dropped };

/// Tells the host what became of one request.
struct JX_API JXDelivery {
  /// What became of it.
  JXDeliveryOutcome outcome = JXDeliveryOutcome::Delivered;
  JXString eventId;  ///< the event's "event_id"; absent when the body holds none
  int status = 0;    ///< HTTP status, 0 when there was none
  JXString reason;   ///< in words, for a log; absent when delivered
  JXDropReason dropReason = JXDropReason::None;  ///< of a dropped one
};

/// Called on the transfer thread, once per request, after the request has left the queue: sent,
/// refused by the receiver, or dropped, be it by the bounds, by a purge or because the queue did
/// not take it. May call any JXNetworkManager operation; a `flush` in it does not wait. A drop is
/// told within `syncDelay`; one beyond the first 10,000 that wait to be told is only counted, and
/// so is every drop after the process began to end. What it throws is caught and logged.
using JXDeliveryCallback = std::function<void(const JXDelivery&)>;

/// Counts since the start of this process, and what is held now.
struct JX_API JXDeliveryCounters {
  /// What the queue counts.
  JXOutboxCounters outbox;
  std::uint64_t attempts = 0;  ///< requests that were started
  std::uint64_t failures = 0;  ///< tries that ended without a lasting answer
  bool paused = false;  ///< true while requests are held by consent, background or user agent
};

}  // namespace jx
