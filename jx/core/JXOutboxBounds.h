// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "jx/platform/JXApi.h"

namespace jx {

/// Limits of the event queue (outbox). Each insert checks them and drops the oldest requests first.
struct JX_API JXOutboxBounds {
  /// Maximum number of queued requests; the oldest are dropped. Default: 10,000. 0 counts as 1.
  std::size_t maxRequests = 10'000;
  /// Maximum size of the queue in bytes: the sum of the bodies and URLs of all requests. The oldest
  /// requests are dropped; a request that exceeds the limit alone is not queued. Default: 32 MiB.
  std::uint64_t maxBytes = 32u * 1024 * 1024;
  /// Maximum age of a queued request, a dead letter or a quarantined file, in milliseconds. Data
  /// created before 2025 (clock not set yet) or in the future has no age. Default: 30 days.
  std::chrono::milliseconds maxAge = std::chrono::hours(24 * 30);
  /// Maximum number of dead letters, which are requests that the server rejected; the oldest are
  /// deleted, also when their file would exceed maxBytes. Default: 1,000. 0 keeps none.
  std::size_t maxDeadLetters = 1'000;
  /// Maximum number of requests kept in memory while writes to the disk fail; the oldest are
  /// dropped. Default: 1,000. 0 drops each new request while writes fail.
  std::size_t maxInMemory = 1'000;
};

/// Reason why a request left the queue without a response.
enum class JXDropReason {
  None,        ///< the request was not dropped
  TooMany,     ///< the queue exceeded maxRequests; the oldest request is dropped
  TooLarge,    ///< the queue, or the request alone, exceeded maxBytes
  TooOld,      ///< the request exceeded maxAge
  NoStorage,   ///< the request could not be stored, and maxInMemory left no room for it
  Unreadable,  ///< the stored bytes of the request are damaged
  Purged,      ///< removed by a purge
  OutOfMemory  ///< memory was exhausted before the event was stored
};

/// Number of requests per outcome since this outbox was opened, and the current queue size.
struct JX_API JXOutboxCounters {
  /// Requests accepted by the queue.
  std::uint64_t added = 0;
  /// Requests that received a 2xx response.
  std::uint64_t delivered = 0;
  /// Requests that were permanently rejected.
  std::uint64_t rejected = 0;
  std::uint64_t droppedTooMany = 0;     ///< oldest requests dropped because of maxRequests
  std::uint64_t droppedTooLarge = 0;    ///< requests dropped or not queued because of maxBytes
  std::uint64_t droppedTooOld = 0;      ///< requests dropped because of maxAge
  std::uint64_t droppedNoStorage = 0;   ///< requests dropped because of maxInMemory
  std::uint64_t droppedUnreadable = 0;  ///< requests whose stored bytes were damaged after opening
  /// Requests removed by `purge`.
  std::uint64_t purged = 0;
  std::uint64_t storageErrors = 0;  ///< failed writes, reads and syncs
  std::uint64_t damaged = 0;        ///< files of which a part was quarantined
  std::uint64_t queued = 0;  ///< requests queued now, in flight ones included, dead letters not
  /// Sum of the bodies and URLs of the queued requests, in bytes.
  std::uint64_t queuedBytes = 0;
  std::uint64_t inMemory = 0;  ///< queued requests that are not stored on disk yet
  /// Events that were not queued because memory was exhausted.
  std::uint64_t droppedOutOfMemory = 0;
  /// Quarantined files that were deleted because of their number, size or age.
  std::uint64_t quarantinedDeleted = 0;
};

}  // namespace jx
