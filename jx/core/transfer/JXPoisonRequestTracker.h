// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "jx/core/transfer/JXRetryPolicy.h"

namespace jx {

/// Finds the requests on which the receiver itself stumbles. The oldest request is tried first and
/// a failure pauses everything, so one body that is always answered with 500 would keep all others
/// from leaving until it is too old. A request that failed so `kTries` times has a pause of its
/// own, doubling like that of the pipeline, in which others are tried; when they get through, only
/// that one waits. A pure state: it is told what happened and when.
class JXPoisonRequestTracker {
 public:
  using Time = std::chrono::steady_clock::time_point;
  /// A restart of the receiver gives a 5xx or two; three in a row to one request are suspicious.
  static constexpr std::uint32_t kTries = 3;
  /// More than these are not known apart; the oldest is forgotten first.
  static constexpr std::size_t kMost = 100;

  explicit JXPoisonRequestTracker(const JXRetryTimings& timings) : timings_(timings) {}

  /// A try of the request ended; its pause, if it has one, counts from `start`.
  void ended(std::uint64_t id, const JXAttemptResult& outcome, JXResponseClass verdict, Time start);
  /// The requests that are not to be tried now.
  std::vector<std::uint64_t> deferred(Time now) const;
  /// When the first of them may be tried again; nothing when there is none.
  std::optional<Time> firstEnd(Time now) const;
  /// All may be tried again.
  void endPauses();

 private:
  struct Suspect {
    std::uint64_t id;
    std::uint32_t failures;
    Time until;  ///< its pause ends
  };

  JXRetryTimings timings_;
  std::vector<Suspect> suspects_;
};

}  // namespace jx
