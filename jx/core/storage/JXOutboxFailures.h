// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>

#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXSendFilter.h"

namespace jx {

/// The server errors of the requests in an outbox, and when each is retried. Not synchronised.
class JXOutboxFailures {
 public:
  explicit JXOutboxFailures(JXOutboxIndex& index) : index_(index) {}

  /// Adds the failures of a request of an earlier process. Their delay is at most a day.
  void adopt(std::uint64_t id, JXRequestFailures failures);
  /// Records a failure that happened now, with its count and delay.
  void record(std::uint64_t id, const JXRequestFailures& failures, const JXStoredTime& now);
  void remove(std::uint64_t id) { failures_.erase(id); }
  /// Returns the failures of a request; none if it has not failed.
  JXRequestFailures of(std::uint64_t id) const;
  /// Returns the time since the first failure of a request; 0 if it has not failed.
  std::chrono::milliseconds failedFor(std::uint64_t id, const JXStoredTime& now) const;

  /// Returns the request whose delay has been over for the longest time, or null.
  JXOutboxEntry* nextRetry(std::uint32_t host, const JXSendFilter& filter, const JXStoredTime& now);
  /// Returns the time until the delay of a request ends; nullopt if none waits.
  std::optional<std::chrono::milliseconds> nextRetryIn(std::uint32_t host,
                                                       const JXSendFilter& filter,
                                                       const JXStoredTime& now);
  /// Shortens the delays that the server did not request.
  void shortenDelays(std::chrono::milliseconds longest);

 private:
  JXOutboxIndex& index_;
  std::map<std::uint64_t, JXRequestFailures> failures_;  ///< by ID
};

}  // namespace jx
