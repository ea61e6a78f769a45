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

/// One POST of a JSON body. `id` is the caller's and names it among those in flight.
struct JXHttpRequest {
  std::uint64_t id = 0;
  std::string url;
  std::string body;
};

/// How a request ended; it carries the request back.
struct JXHttpResult {
  JXHttpRequest request;
  JXAttemptResult outcome;
  JXString retryAfter;  ///< value of the answer's Retry-After header
  std::string reason;   ///< without an answer: why there is none, in words
};

/// Sends HTTP requests side by side without a thread of its own. It belongs to one thread, which
/// drives it with `poll`; only `wakeUp` may be called from others. No operation but a constructor
/// throws anything besides std::bad_alloc.
class JXHttpTransport {
 public:
  virtual ~JXHttpTransport() = default;

  /// Takes a request up; each one started ends in exactly one result or in `abortAll`.
  virtual void start(JXHttpRequest request) = 0;
  /// Moves the requests on and returns the results there are. When there are none yet it first
  /// waits, until something happens on the network, `wakeUp` was called or `timeout` has passed;
  /// without a timeout it may wait for ever.
  virtual std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) = 0;
  /// Ends the present `poll`, or the next one when none is running.
  virtual void wakeUp() noexcept = 0;
  /// Ends all requests without an answer, and forgets them.
  virtual void abortAll() noexcept = 0;
};

}  // namespace jx
