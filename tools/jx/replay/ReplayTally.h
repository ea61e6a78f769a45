// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "jx/core/transfer/JXDelivery.h"

namespace jx {

/// What a replay did, in numbers.
struct ReplayTally {
  std::uint64_t executed = 0;
  std::uint64_t ignored = 0;  ///< of the executed, those that the library did not take: disabled
  std::uint64_t badLines = 0;
  bool sends = false;  ///< false: nothing was to be stored or sent
  JXDeliveryCounters counters;

  std::uint64_t delivered() const { return counters.outbox.delivered; }
  /// Still in the queue, what an earlier run left included.
  std::uint64_t held() const { return counters.outbox.queued; }
  std::uint64_t rejected() const { return counters.outbox.rejected; }
  /// Pushed out of the queue, too old, or never taken into it.
  std::uint64_t dropped() const;
};

/// "executed 3, delivered 3, held 0, rejected 0, dropped 0", and what is worth adding.
std::string summaryOf(const ReplayTally& tally);

/// 0 all well, 1 bad lines, 3 something was left undelivered, bad lines or not.
int exitStatusOf(const ReplayTally& tally);

}  // namespace jx
