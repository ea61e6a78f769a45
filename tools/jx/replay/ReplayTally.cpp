// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplayTally.h"

#include "tools/jx/ExitStatus.h"
#include "tools/jx/replay/ReplayExit.h"

namespace jx {

std::uint64_t ReplayTally::dropped() const {
  if (!sends) return 0;
  const JXOutboxCounters& outbox = counters.outbox;
  const std::uint64_t seen = ignored + outbox.added + outbox.droppedNoStorage;
  // Without a transfer thread the library neither queues nor counts requests.
  const std::uint64_t neverQueued = executed > seen ? executed - seen : 0;
  return outbox.droppedTooMany + outbox.droppedTooLarge + outbox.droppedTooOld +
         outbox.droppedNoStorage + outbox.droppedUnreadable + neverQueued;
}

std::string summaryOf(const ReplayTally& tally) {
  std::string text = "executed " + std::to_string(tally.executed) + ", delivered " +
                     std::to_string(tally.delivered()) + ", held " + std::to_string(tally.held()) +
                     ", rejected " + std::to_string(tally.rejected()) + ", dropped " +
                     std::to_string(tally.dropped());
  if (tally.ignored != 0) text += "; " + std::to_string(tally.ignored) + " ignored while disabled";
  if (tally.badLines != 0) text += "; bad lines " + std::to_string(tally.badLines);
  if (const std::uint64_t lost = tally.counters.outbox.inMemory; lost != 0) {
    text += "; " + std::to_string(lost) +
            (lost == 1 ? " held event could not be stored and is lost"
                       : " held events could not be stored and are lost");
  }
  return text;
}

int exitStatusOf(const ReplayTally& tally) {
  if (tally.held() + tally.rejected() + tally.dropped() != 0) return kExitUndelivered;
  return tally.badLines != 0 ? kExitFailure : kExitOk;
}

}  // namespace jx
