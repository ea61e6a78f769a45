// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "jx/platform/JXApi.h"

namespace jx {

/// What the outbox may hold; checked at each insert, the oldest requests go first.
struct JX_API JXOutboxBounds {
  /// How many requests wait at most.
  std::size_t maxRequests = 10'000;
  std::uint64_t maxBytes = 32u * 1024 * 1024;  ///< sum of the bodies and URLs held
  /// A request older than this is dropped.
  std::chrono::milliseconds maxAge = std::chrono::hours(24 * 30);
  /// How many refused requests are kept aside; the oldest go.
  std::size_t maxDeadLetters = 1'000;
  std::size_t maxInMemory = 1'000;  ///< requests held while the disk takes none
};

/// Why a request left the queue without an answer.
enum class JXDropReason {
  None,        ///< it was not dropped
  TooMany,     ///< the oldest, because of maxRequests
  TooLarge,    ///< the oldest, or one alone, because of maxBytes
  TooOld,      ///< because of maxAge
  NoStorage,   ///< the disk took none, and maxInMemory made no room for it
  Unreadable,  ///< its bytes on the disk are damaged
  Purged       ///< the queue was emptied by order
};

/// How many requests took which way since this outbox was opened, and what it holds now.
struct JX_API JXOutboxCounters {
  /// Taken by the queue.
  std::uint64_t added = 0;
  /// Answered with 2xx.
  std::uint64_t delivered = 0;
  /// Refused by the receiver for good.
  std::uint64_t rejected = 0;
  std::uint64_t droppedTooMany = 0;     ///< the oldest, because of maxRequests
  std::uint64_t droppedTooLarge = 0;    ///< the oldest, or one alone, because of maxBytes
  std::uint64_t droppedTooOld = 0;      ///< because of maxAge
  std::uint64_t droppedNoStorage = 0;   ///< the oldest in memory, because of maxInMemory
  std::uint64_t droppedUnreadable = 0;  ///< its bytes on the disk were damaged meanwhile
  /// Removed by `purge`.
  std::uint64_t purged = 0;
  std::uint64_t storageErrors = 0;  ///< writes, reads and syncs that failed
  std::uint64_t damaged = 0;        ///< files of which a part was set aside
  std::uint64_t queued = 0;         ///< held now; in flight ones included, rejected ones not
  /// The sum of their bodies and URLs.
  std::uint64_t queuedBytes = 0;
  std::uint64_t inMemory = 0;  ///< of the queued, those that are on no disk yet
};

}  // namespace jx
