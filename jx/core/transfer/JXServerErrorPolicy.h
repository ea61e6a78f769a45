// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/transfer/JXRetryPolicy.h"

namespace jx {

/// What the server errors of a host say about it, since its last final response. A server error
/// (5xx except 503) may be the fault of the request or of the host. Therefore a request that failed
/// is retried on a schedule of its own, and only failures of several requests in a row make the
/// host wait. New requests, which never failed, wait only for failures of new requests: however
/// often known poison requests fail, a new request is sent at once.
struct JXServerErrorState {
  using Time = std::chrono::steady_clock::time_point;
  /// A host that fails on this number of different requests fails on everything.
  static constexpr std::size_t kFailingHostRun = 5;

  std::uint32_t newFailures = 0;    ///< failures of new requests
  std::uint32_t retryFailures = 0;  ///< failures of requests that had failed before
  std::size_t run = 0;              ///< different requests that failed, up to kFailingHostRun
  std::array<std::uint64_t, kFailingHostRun> failedIds{};  ///< their IDs
  Time failedAt = Time::min();
  Time newUntil = Time::min();      ///< no new request is started before
  Time retriesUntil = Time::min();  ///< no retry is started before

  /// Returns true when so many new requests failed in a row that the host is probed with single
  /// requests chosen across the whole queue.
  bool isProbing() const noexcept;
  /// Returns true when so many different requests failed in a row that nothing speaks against a
  /// single one of them.
  bool isHostFailing() const noexcept { return run >= kFailingHostRun; }
};

/// Returns the state after a server error of the request `id` at `now`; `isRetry` when it had
/// failed before.
///
/// Up to two failures in a row start no wait. From the third on, the wait doubles with each failure
/// from `initialBackoff` to `maxBackoff`, and is 80 % to 93 % of that, depending on `draw` in
/// [0, 1). So a new request waits for less than `maxBackoff`, and a host that fails on everything
/// receives at most 360 attempts a day plus a dozen, with the default timings.
JXServerErrorState afterServerError(const JXServerErrorState& state, std::uint64_t id, bool isRetry,
                                    const JXRetryTimings& timings, JXServerErrorState::Time now,
                                    double draw) noexcept;

/// Returns the state after a flush: a wait ends `initialBackoff` after the failure, as that of
/// `shortenBackoff`.
JXServerErrorState shortenWaits(const JXServerErrorState& state, const JXRetryTimings& timings,
                                JXServerErrorState::Time now) noexcept;

/// Returns the failures of a request after a further server error. The request is retried after
/// 60 times `initialBackoff` (1 minute), doubling to 96 times `maxBackoff` (8 hours), and at least
/// after its Retry-After. While the host fails on everything, the delay does not grow.
JXRequestFailures afterFailure(const JXRequestFailures& failures, bool isHostFailing,
                               std::optional<std::chrono::milliseconds> retryAfter,
                               const JXRetryTimings& timings) noexcept;

/// Time after its first server error from which a request is rejected by a further one.
constexpr std::chrono::hours kJXMaxFailing{3 * 24};

/// Returns whether a request that failed again `failedFor` after its first failure is rejected.
bool isPoison(std::chrono::milliseconds failedFor, const JXServerErrorState& host) noexcept;

}  // namespace jx
