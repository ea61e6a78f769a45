// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Everything that the transfer thread works with.
struct JXTransferSetup {
  std::shared_ptr<JXOutbox> outbox;
  std::shared_ptr<const JXClock> clock;  ///< time of day, for a Retry-After that is a date
  JXRetryTimings timings;
  JXString caFile;  ///< certificates to trust; absent: those of the system
  JXString proxy;   ///< absent: what the environment says
  JXDeliveryCallback onDelivery;
  /// Run on the transfer thread together with the outbox's sync: makes durable and tidies what
  /// else the core keeps on the disk.
  std::function<void()> maintain;
  /// Asked before a try after a pause or an idle time, on the transfer thread.
  std::function<void()> beforeConnecting;
};

}  // namespace jx
