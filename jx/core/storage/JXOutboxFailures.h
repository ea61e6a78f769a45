// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>

#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXSendFilter.h"
#include "jx/platform/JXClock.h"

namespace jx {

/// The server errors of the requests in an outbox, and when each is retried. Not synchronised.
class JXOutboxFailures {
 public:
  JXOutboxFailures(JXOutboxIndex& index, std::shared_ptr<const JXClock> clock)
      : index_(index), clock_(std::move(clock)) {}

  /// Adds the failures of a request of an earlier process. Their delay is at most a day.
  void adopt(std::uint64_t id, JXRequestFailures failures);
  /// Records a failure that happened now, with its count and delay.
  void record(std::uint64_t id, const JXRequestFailures& failures);
  void remove(std::uint64_t id) { failures_.erase(id); }
  /// Returns the failures of a request; none if it has not failed.
  JXRequestFailures of(std::uint64_t id) const;
  /// Returns the time since the first failure of a request; 0 if it is not known.
  std::chrono::milliseconds failedFor(std::uint64_t id) const;

  /// Returns the request whose delay has been over for the longest time, or null.
  JXOutboxEntry* nextRetry(std::uint32_t host, const JXSendFilter& filter);
  /// Returns the time until the delay of a request ends; nullopt if none waits.
  std::optional<std::chrono::milliseconds> nextRetryIn(std::uint32_t host,
                                                       const JXSendFilter& filter);
  /// Shortens the delays that the server did not request.
  void shortenDelays(std::chrono::milliseconds longest);

 private:
  std::chrono::milliseconds remainingDelay(JXRequestFailures& failures) const;

  JXOutboxIndex& index_;
  const std::shared_ptr<const JXClock> clock_;
  std::map<std::uint64_t, JXRequestFailures> failures_;  ///< by ID
};

}  // namespace jx
