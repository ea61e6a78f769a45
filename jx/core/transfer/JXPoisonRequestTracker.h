// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "jx/core/transfer/JXRetryPolicy.h"

namespace jx {

/// Tracks requests that the server repeatedly fails to process, so that they do not block the
/// queue. The oldest request is sent first and a failure delays all requests, so a body that always
/// gets a 5xx response would block the others until it expires. After `kFailureLimit` such failures
/// a request is deferred with its own backoff, which doubles like that of the pipeline; others are
/// sent in the meantime. Pure state: the caller passes each result with its time.
class JXPoisonRequestTracker {
 public:
  using Time = std::chrono::steady_clock::time_point;
  /// A server restart may cause one or two 5xx responses; three for the same request defer it.
  static constexpr std::uint32_t kFailureLimit = 3;
  /// Maximum number of tracked requests; the oldest is removed first.
  static constexpr std::size_t kMaxTracked = 100;

  explicit JXPoisonRequestTracker(const JXRetryTimings& timings) : timings_(timings) {}

  /// Records the result of an attempt. A deferral begins at `start`.
  void ended(std::uint64_t id, const JXAttemptResult& outcome, JXResponseClass responseClass,
             Time start);
  /// Returns the requests that must not be sent now.
  std::vector<std::uint64_t> deferred(Time now) const;
  /// Returns the time of the next retry of a deferred request; nullopt when none is deferred.
  std::optional<Time> nextRetry(Time now) const;
  /// Ends all deferrals.
  void endDeferrals();

 private:
  struct Tracked {
    std::uint64_t id;
    std::uint32_t failures;
    Time until;  ///< end of its deferral
  };

  JXRetryTimings timings_;
  std::vector<Tracked> tracked_;
};

}  // namespace jx
