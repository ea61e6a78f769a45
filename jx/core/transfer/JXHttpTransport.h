// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jx/core/transfer/JXRetryPolicy.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One POST of a JSON body. The caller chooses `id`, which identifies the request while in flight.
struct JXHttpRequest {
  std::uint64_t id = 0;
  std::string url;
  std::string body;
};

/// Result of a request; returns the request to the caller.
struct JXHttpResult {
  JXHttpRequest request;
  JXAttemptResult outcome;
  JXString retryAfter;  ///< value of the response's Retry-After header
  std::string reason;   ///< error message when there is no response
};

/// Sends HTTP requests concurrently without its own thread. It belongs to one thread, which drives
/// it with `poll`; only `wakeUp` may be called on other threads. Except for constructors,
/// operations throw only std::bad_alloc.
class JXHttpTransport {
 public:
  virtual ~JXHttpTransport() = default;

  /// Starts a request. Each started request ends with exactly one result, or with `abortAll`.
  virtual void start(JXHttpRequest request) = 0;
  /// Advances the requests and returns the results. Without a result, waits first until there is
  /// network activity, `wakeUp` is called or `timeout` has passed; without a timeout it may wait
  /// forever.
  virtual std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) = 0;
  /// Ends the current `poll`, or the next one when none is running.
  virtual void wakeUp() noexcept = 0;
  /// Aborts and discards all requests without a result.
  virtual void abortAll() noexcept = 0;
};

}  // namespace jx
