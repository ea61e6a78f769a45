// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/Ledger.h"

#include <algorithm>

namespace jx::simulation {
namespace {

constexpr std::int64_t kNever = INT64_MAX / 2;

}  // namespace

Event* Ledger::find(std::string_view body) {
  constexpr std::string_view kBefore = "\"event_id\":\"";
  const std::size_t at = body.find(kBefore);
  if (at == std::string_view::npos) return nullptr;
  const std::size_t begin = at + kBefore.size();
  const std::string_view id = body.substr(begin, body.find('"', begin) - begin);
  const auto found = std::find_if(events_.begin(), events_.end(),
                                  [&](const Event& event) { return event.id == id; });
  return found == events_.end() ? nullptr : &*found;
}

void Ledger::started(int process, std::int64_t nowMs, bool isHealthy) {
  ProcessRecord& record = processes_[process];
  record.startedMs = record.healthyMs = nowMs;
  record.stops = stops_;
  // What failed in earlier processes shows that the host fails, until it sends a final response.
  for (const Event& event : events_) {
    if (event.firstErrorMs >= 0 && !event.hasEnded) {
      record.outages[event.host].failed.insert(&event);
    }
  }
  adopted(process, nowMs, isHealthy);
}

void Ledger::adopted(int process, std::int64_t nowMs, bool isHealthy) {
  const bool isOnly = std::none_of(
      processes_.begin(), processes_.end(),
      [process](const auto& entry) { return entry.first != process && entry.second.isAlive; });
  for (Event& event : events_) {
    const auto owner = processes_.find(event.owner);
    if (!event.isAccepted || (owner != processes_.end() && owner->second.isAlive)) continue;
    event.owner = process;
    // If its last owner was not certain, another living process may have it.
    event.isHeld = isHealthy && (event.isHeld || isOnly);
    event.changedMs = event.endedMs = nowMs;
  }
}

void Ledger::accepted(Event& event, int process, bool isOnDisk, std::int64_t nowMs) {
  event.isAccepted = true;
  ProcessRecord& record = processes_[process];
  if (record.healthyMs >= kNever) record.healthyMs = nowMs + kRepairMs;
  event.owner = process;
  event.isHeld = true;
  event.isOnDisk = isOnDisk;
  event.changedMs = nowMs;
}

void Ledger::worked(int process, std::int64_t nowMs, bool isHealthy) {
  ProcessRecord& record = processes_[process];
  if (!isHealthy) record.healthyMs = std::max(record.healthyMs, nowMs + kRepairMs);
  for (Event& event : events_) {
    if (event.owner != process || !event.isHeld || nowMs < record.healthyMs) continue;
    if (nowMs >= std::max(event.changedMs, record.healthyMs) + kSyncMs) {
      event.isOnDisk = event.isDurable = true;
    }
    if (event.hasEnded && nowMs >= std::max(event.endedMs, record.healthyMs) + kSyncMs) {
      event.endIsDurable = true;
    }
  }
}

void Ledger::disturbed(std::int64_t nowMs) {
  hadFault = true;
  purgesAreUncertain();
  for (auto& [number, record] : processes_) {
    if (!record.isAlive) continue;
    record.healthyMs = std::max(record.healthyMs, nowMs + kRepairMs);
  }
}

void Ledger::folderLost(std::int64_t nowMs) {
  disturbed(nowMs);
  // A process that executes nothing does not notice it.
  for (auto& [number, record] : processes_)
    record.healthyMs = std::max(record.healthyMs, kNever);
  stops_.clear();
  for (Event& event : events_) {
    const auto owner = processes_.find(event.owner);
    const bool isHeld = event.isHeld && owner != processes_.end() && owner->second.isAlive;
    if (!isHeld || event.isRejected) event.mayBeLost = true;
    event.mayRepeat = true;
    // A process that has not noticed an erase before its mark is lost writes its queue again.
    event.forbiddenFrom = 0;
    event.isErased = false;
    event.isOnDisk = event.isDurable = event.endIsDurable = false;
    event.changedMs = event.endedMs = nowMs;
  }
}

void Ledger::died(int process, std::uint64_t unreported) {
  unreported_ += unreported;
  processes_[process].isAlive = false;
  for (Event& event : events_) {
    if (event.owner != process) continue;
    if (!event.isOnDisk) event.mayBeLost = true;
    event.isDurable = event.isDurable && !event.mayBeLost;
  }
}

void Ledger::powerCut() {
  for (auto& [number, record] : processes_)
    record.isAlive = false;
  purgesAreUncertain();  // they are not synced
  for (Event& event : events_) {
    const bool isBetweenFiles = event.isRejected && event.hasEnded && !event.endIsDurable;
    if (!event.isDurable || isBetweenFiles) event.mayBeLost = true;
    if (!event.endIsDurable) event.mayRepeat = true;
  }
}

void Ledger::stopped(int process, bool isRecorded) {
  ProcessRecord& record = processes_[process];
  record.isStopped = true;
  for (const ProcessRecord::Member& member : record.members) {
    if (member.start == JXStartState::AlwaysEnabled) continue;
    record.stops[member.source] = operations_;
    if (!isRecorded) continue;
    stops_[member.source] = operations_;
    // Another process may have a higher number of stops; its events are not held.
    for (Event& event : events_) {
      const bool isInQueue = event.owner == process && event.isHeld;
      if (event.source == member.source && isInQueue) event.heldBy = operations_;
    }
  }
}

void Ledger::enabled(int process) {
  ProcessRecord& record = processes_[process];
  record.isStopped = false;
  for (ProcessRecord::Member& member : record.members) {
    member.wasEnabled = true;
    record.stops.erase(member.source);
    stops_.erase(member.source);
  }
}

void Ledger::removing(int process) {
  removingFrom_ = operations_;
  removedAt_ = UINT64_MAX;  // until it has ended
  removingOf_ = process;
  for (Event& event : events_) {
    event.couldBeLost = event.mayBeLost;
    event.wasOnDisk = event.isOnDisk;
    event.wasDurable = event.isDurable;
    const bool isInQueue = process == 0 || event.owner == process;
    if (isInQueue || event.isRejected) event.mayBeLost = true;
  }
}

// What is executed during a removal may be removed.
void Ledger::removedMeanwhile() {
  removedAt_ = operations_;
  for (Event& event : events_) {
    if (event.order > removingFrom_) event.mayBeLost = true;
  }
}

void Ledger::erasedAtStart(bool isComplete) {
  removingFrom_ = erasingFrom_;
  removingOf_ = 0;
  if (isComplete) removed(true);
  // It also deletes the marks of purges, and the files of processes that work.
  for (Event& event : events_) {
    if (event.order <= removingFrom_) continue;
    event.forbiddenFrom = 0;
    event.isOnDisk = event.isDurable = false;
  }
}

// A purge from outside does not reach what is in the memory of a process.
void Ledger::removed(bool isErase) {
  const std::uint64_t now = nextOperation();
  removedMeanwhile();
  for (Event& event : events_) {
    // Its file may be deleted; the process that has it writes it again with its next event.
    if (isErase && event.order > removingFrom_) event.isOnDisk = event.isDurable = false;
    if (event.order > removingFrom_) continue;
    const bool isReached = isErase || removingOf_ != 0 || event.isOnDisk;
    const bool isMeant = removingOf_ == 0 || (event.owner == removingOf_ && event.isHeld);
    if (event.forbiddenFrom == 0 && isReached && isMeant) {
      event.forbiddenFrom = now;
    }
    event.isErased = event.isErased || isErase;
  }
}

void Ledger::removalFailed() {
  mayRemove = true;
  removedMeanwhile();
  purgesAreUncertain();
  for (Event& event : events_)
    event.isOnDisk = event.isDurable = false;
}

void Ledger::removalHadNoEffect() {
  for (Event& event : events_) {
    if (event.order > removingFrom_) continue;
    event.mayBeLost = event.couldBeLost;
    event.isOnDisk = event.wasOnDisk;
    event.isDurable = event.wasDurable;
  }
}

void Ledger::purgesAreUncertain() {
  for (Event& event : events_) {
    if (!event.isErased) event.forbiddenFrom = 0;
  }
}

void Ledger::ended(Event& event, bool isCertain, std::int64_t nowMs) {
  event.hasEnded = true;
  event.endedMs = nowMs;
  event.endIsDurable = false;
  if (!isCertain) event.mayRepeat = true;
}

const char* Ledger::refusal(const Event& event, const ProcessRecord& process, long failures) const {
  // The mark of an erase by another process may just not be readable.
  const bool mayMissErase = event.isErased && failures != process.failuresBefore;
  const bool isForbidden =
      event.forbiddenFrom != 0 && process.operation > event.forbiddenFrom && !mayMissErase;
  if (isForbidden) {
    return "was purged or erased";
  }
  if (event.hasEnded && !event.mayRepeat) return "had ended";
  if (event.start == JXStartState::AlwaysEnabled) return nullptr;
  if (process.isStopped) return "must wait until the process is enabled";
  const bool isOwn = &processes_.at(event.executedBy) == &process;
  if (isOwn && !event.awaitsDecision) return nullptr;
  const auto stop = process.stops.find(event.source);
  if (stop != process.stops.end() && event.heldBy == stop->second) {
    return "is held by an earlier stop";
  }
  return heldBySource(event, process);
}

// The strictest ServerSide of the source decides.
const char* Ledger::heldBySource(const Event& event, const ProcessRecord& process) const {
  if (process.members.empty()) return "belongs to no ServerSide yet";
  bool hasMember = false;
  for (const ProcessRecord::Member& member : process.members) {
    if (member.source != event.source) continue;
    hasMember = true;
    if (member.wasEnabled) continue;
    if (member.start == JXStartState::Disabled) return "must wait until its source is enabled";
    if (member.start == JXStartState::WaitingForConsent && !event.hasWaitingMarker) {
      return "must wait for the consent";
    }
  }
  if (hasMember || event.hasWaitingMarker || event.start == JXStartState::Enabled) return nullptr;
  return "must wait until its own ServerSide is enabled";
}

const char* Ledger::wrongReport(Event& event, const JXDelivery& delivery, bool mayExpire) {
  switch (delivery.outcome) {
    case JXDeliveryOutcome::Delivered:
      event.isReportedDelivered = true;
      return event.received == 0 ? "is reported as delivered but was not received" : nullptr;
    case JXDeliveryOutcome::Rejected:
      event.isReportedRejected = true;
      return event.isRejected || event.isGivenUp ? nullptr : "is reported as rejected but was not";
    case JXDeliveryOutcome::Dropped:
      break;
  }
  const bool isRepeated = event.isReportedDropped && event.endIsDurable && !event.mayRepeat;
  event.isReportedDropped = true;
  if (isRepeated) return "is reported as dropped again";
  const bool wasAnswered = event.answeredBy == event.owner && event.owner != 0;
  if (wasAnswered && delivery.dropReason != JXDropReason::Purged) {
    return "is reported as dropped but was delivered";
  }
  switch (delivery.dropReason) {
    case JXDropReason::NoStorage:
      return hadFault ? nullptr : "was dropped although the disk has worked";
    case JXDropReason::Unreadable:
      return hadDamage ? nullptr : "was dropped as damaged although it was not";
    case JXDropReason::Purged:
      return event.order <= removedAt_ || mayRemove || event.mayMissErase
                 ? nullptr
                 : "was dropped as purged although it is newer than any purge";
    case JXDropReason::TooOld:
      return mayExpire ? nullptr : "was dropped as too old although it was not";
    default:
      return nullptr;
  }
}

}  // namespace jx::simulation
