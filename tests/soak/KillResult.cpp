// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/KillResult.h"

#include <algorithm>

namespace jx::soak {

void KillResult::add(const KillResult& other) {
  kills += other.kills;
  early += other.early;
  parallel += other.parallel;
  threads += other.threads;
  moves += other.moves;
  unfinishedMoves += other.unfinishedMoves;
  forks += other.forks;
  clockJumps += other.clockJumps;
  executed += other.executed;
  requests += other.requests;
  delivered += other.delivered;
  rejected += other.rejected;
  twice += other.twice;
  interrupted += other.interrupted;
  quarantined += other.quarantined;
  excused += other.excused;
  lost += other.lost;
  longestStartMs = std::max(longestStartMs, other.longestStartMs);
  longestQueue = std::max(longestQueue, other.longestQueue);
  failures += other.failures;
}

}  // namespace jx::soak
