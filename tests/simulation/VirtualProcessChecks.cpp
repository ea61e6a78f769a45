// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "tests/simulation/VirtualProcess.h"

namespace jx::simulation {
namespace {

constexpr std::size_t kMaxDescriptors = 8;

}  // namespace

void VirtualProcess::checkLimits(const JXOutboxCounters& before, std::uint64_t bytes) {
  const JXOutboxCounters now = outbox_->counters();
  const JXOutboxBounds& bounds = world_.bounds;
  // The limits do not apply to requests in flight, and never to the newest.
  const std::size_t exempt = transport_->inFlight() + 1;
  if (now.queued > std::max(bounds.maxRequests, exempt)) {
    world_.violated("more than maxRequests are queued");
  }
  if (now.queuedBytes > bounds.maxBytes && now.queued > exempt) {
    world_.violated("more than maxBytes are queued");
  }
  // The requests of deleted files are counted, too.
  const bool isCounted = isAlive() && !world_.ledger.mayLoseFiles;
  if (isCounted && now.inMemory > bounds.maxInMemory && now.inMemory > exempt) {
    world_.violated("more than maxInMemory are in memory");
  }
  // The number of requests is limited before their size.
  const std::uint64_t tooLarge = now.droppedTooLarge - before.droppedTooLarge;
  // Rejected requests count, too, until their dead letters are written: another process may be
  // writing them, or the disk may fail.
  const bool isFull =
      now.queued + tooLarge >= bounds.maxRequests || world_.interleaves || world_.ledger.hadFault;
  if (now.droppedTooMany > before.droppedTooMany && !isFull) {
    world_.violated("an event was dropped although fewer than maxRequests are queued");
  }
  // In the meantime, a process that works during the calls may have queued a rejected request.
  if (tooLarge > 0 && before.queuedBytes + bytes <= bounds.maxBytes && !world_.interleaves) {
    world_.violated("an event was dropped although less than maxBytes is queued");
  }
}

// Called at the start: no value that must have survived may be missing. Faults and damage may mix
// the order in which several processes write their values.
void VirtualProcess::checkValue() {
  const JXString found = defaults_->objectForKey("JXValue");
  const std::string value =
      found.isPresent() ? found.toStdString().substr(0, found.toStdString().find(';') + 1) : "";
  const std::uint64_t order = value.empty() ? 0 : std::stoull(value.substr(1));
  world_.say("process %d has started, with the value %s", number_, value.c_str());
  if (!isAlive() || world_.ledger.hadFault || world_.ledger.hadDamage) return;
  for (const Event& event : world_.ledger.events()) {
    if (!event.isValue) continue;
    if (event.order > order && !event.mayBeLost && event.isAccepted) {
      world_.violated("the value " + event.id + " is lost; found: " + value);
    }
    if (event.isErased && event.order == order) {
      world_.violated("the erased value " + event.id + " is back");
    }
  }
}

// While the disk works, the queue is in files; however many, few of them are open.
void VirtualProcess::checkResources() {
  // A segment whose folder was replaced keeps it open until it is written again.
  const bool isBounded = !world_.ledger.mayLoseFiles;
  if (isBounded && world_.disk.mostDescriptors(number_) > kMaxDescriptors) {
    world_.violated("more than eight descriptors are open");
  }
  const bool isRepaired = world_.clock->steadyMs() >= record().healthyMs + Ledger::kSyncMs;
  if (isRepaired && outbox_->counters().inMemory != 0) {
    world_.violated("events are in memory only although the disk works");
  }
}

void VirtualProcess::noteEnds(const std::vector<JXHttpResult>& results, long failures) {
  for (const JXHttpResult& result : results) {
    Event* const event = world_.ledger.find(result.request.body);
    const int status = result.outcome.status;
    if (event == nullptr || (status / 100 != 2 && status != 413)) continue;
    if (status != 413) event->answeredBy = number_;
    if (status != 413 && event->droppedBy == number_) {
      world_.violated(event->id + " is delivered after it was reported as dropped");
    }
    // A rejected event waits for its dead letter while another process writes one.
    const bool isCertain =
        isAlive() && failures == world_.disk.failures() && (status != 413 || !world_.interleaves);
    world_.ledger.ended(*event, isCertain, world_.clock->steadyMs());
  }
}

void VirtualProcess::report(const JXDelivery& delivery) {
  if (!isAlive()) return;
  if (delivery.outcome == JXDeliveryOutcome::Dropped) ++record().reported;
  if (!delivery.eventId.isPresent()) return;
  const std::string body = "\"event_id\":\"" + delivery.eventId.toStdString() + "\"";
  Event* const event = world_.ledger.find(body);
  if (event == nullptr) return;
  world_.say("  process %d reports %s: %s", number_, event->id.c_str(),
             delivery.reason.isPresent() ? delivery.reason.toStdString().c_str() : "delivered");
  const bool mayExpire = world_.mayExpire(*event);
  if (const char* const wrong = world_.ledger.wrongReport(*event, delivery, mayExpire)) {
    world_.violated(event->id + " " + wrong);
  }
  if (delivery.outcome == JXDeliveryOutcome::Rejected && event->isPoisonous) {
    event->isGivenUp = true;
    world_.ledger.ended(*event, false, world_.clock->steadyMs());
  }
  if (delivery.outcome != JXDeliveryOutcome::Dropped) return;
  if (delivery.dropReason != JXDropReason::Purged) event->droppedBy = number_;
  const std::int64_t nowMs = world_.clock->steadyMs();
  const bool isHealthy =
      world_.disk.fault() == VirtualDisk::Fault::None && nowMs >= record().healthyMs;
  world_.ledger.ended(*event, isHealthy, nowMs);
}

}  // namespace jx::simulation
