// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "jx/core/transfer/JXDelivery.h"

namespace jx {

/// Counters of a replay.
struct ReplayTally {
  std::uint64_t executed = 0;
  std::uint64_t ignored = 0;  ///< executed events that the library ignored while disabled
  std::uint64_t badLines = 0;
  bool sends = false;  ///< false: events are neither stored nor sent
  JXDeliveryCounters counters;

  std::uint64_t delivered() const { return counters.outbox.delivered; }
  /// Still in the queue, including requests of earlier runs.
  std::uint64_t held() const { return counters.outbox.queued; }
  std::uint64_t rejected() const { return counters.outbox.rejected; }
  /// Evicted from the queue, expired, or never added to it.
  std::uint64_t dropped() const;
};

/// Returns "executed 3, delivered 3, held 0, rejected 0, dropped 0", followed by ignored events,
/// bad lines and lost events if there are any.
std::string summaryOf(const ReplayTally& tally);

/// Returns 0 for success, 1 for bad lines, 3 when something was left undelivered (with or without
/// bad lines).
int exitStatusOf(const ReplayTally& tally);

}  // namespace jx
