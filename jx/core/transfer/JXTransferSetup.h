// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXHttpTransport;

/// Dependencies and options of the transfer thread.
struct JXTransferSetup {
  std::shared_ptr<JXOutbox> outbox;
  std::shared_ptr<const JXClock> clock;  ///< time of day, for Retry-After dates
  JXRetryTimings timings;
  JXString caFile;  ///< PEM file of trusted certificates; null: the system's
  std::vector<std::string> pinnedPublicKeys;  ///< empty: any key
  JXString proxy;                             ///< proxy URL; "" for none; null: the environment's
  JXString httpUserAgent{"JXServerSide"};     ///< value of the User-Agent header
  JXDeliveryCallback onDelivery;
  /// Called on the transfer thread with each sync of the outbox. Makes the core's other stored data
  /// durable and cleans it up.
  std::function<void()> maintain;
  /// Called on the transfer thread before an attempt that follows a backoff or an idle time.
  std::function<void()> beforeConnecting;
  /// Requests the platform's user agent, stores and posts the result, then calls `known` once, on
  /// any thread, even without a user agent. Called without a lock, on the thread that calls
  /// `waitForUserAgent` or, if that was called first, `start`. Empty: requests never wait for a
  /// user agent.
  std::function<void(std::function<void()> known)> requestUserAgent;

  std::shared_ptr<JXHttpTransport> transport;  ///< null: libcurl with the options above

  // Replaced by tests. Defaults: the steady clock and a random number generator.
  std::function<std::chrono::steady_clock::time_point()> steadyNow;  ///< called on any thread
  std::function<double()> draw;  ///< random number in [0, 1) for the backoff jitter
};

}  // namespace jx
