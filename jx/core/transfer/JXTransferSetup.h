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

/// Everything that the transfer thread works with.
struct JXTransferSetup {
  std::shared_ptr<JXOutbox> outbox;
  std::shared_ptr<const JXClock> clock;  ///< time of day, for a Retry-After that is a date
  JXRetryTimings timings;
  JXString caFile;  ///< certificates to trust; absent: those of the system
  std::vector<std::string> pinnedPublicKeys;  ///< empty: any key
  JXString proxy;                             ///< absent: what the environment says; "" for none
  JXString httpUserAgent{"JXServerSide"};     ///< names this library to the receiver
  JXDeliveryCallback onDelivery;
  /// Run on the transfer thread together with the outbox's sync: makes durable and tidies what
  /// else the core keeps on the disk.
  std::function<void()> maintain;
  /// Asked before a try after a pause or an idle time, on the transfer thread.
  std::function<void()> beforeConnecting;
  /// Asks the platform for its user agent, stores and posts the answer, and then calls `known`,
  /// once, on any thread, also when there is no user agent. Called on the thread that calls
  /// `waitForUserAgent` or, when that came first, `start`; without a lock. Absent: requests never
  /// wait for a user agent.
  std::function<void(std::function<void()> known)> requestUserAgent;

  // What tests move; absent, it is libcurl, the steady clock, and a random generator.
  std::shared_ptr<JXHttpTransport> transport;
  std::function<std::chrono::steady_clock::time_point()> steadyNow;  ///< any thread
  std::function<double()> draw;  ///< a number in [0, 1) for the jitter of pauses
};

}  // namespace jx
