// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxQueue.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <utility>

#include "jx/core/storage/JXAge.h"
#include "jx/core/storage/JXPurgeMark.h"

namespace jx {
namespace {

using State = JXOutboxEntry::State;

// The counters of the drop reasons after None, in their order.
constexpr std::uint64_t JXOutboxCounters::*kDropCounters[] = {
    &JXOutboxCounters::droppedTooMany,    &JXOutboxCounters::droppedTooLarge,
    &JXOutboxCounters::droppedTooOld,     &JXOutboxCounters::droppedNoStorage,
    &JXOutboxCounters::droppedUnreadable, &JXOutboxCounters::purged,
    &JXOutboxCounters::droppedOutOfMemory};
static_assert(std::size(kDropCounters) == static_cast<std::size_t>(JXDropReason::OutOfMemory));

}  // namespace

JXOutboxQueue::JXOutboxQueue(JXOutboxSegments& segments, JXStorageReport& report,
                             const JXOutboxBounds& bounds, std::string currentEndpoint)
    : segments_(segments),
      report_(report),
      bounds_(bounds),
      hosts_(std::move(currentEndpoint)),
      failures_(index_) {
  segments_.beforeRemoval = [this](JXOutboxSegment& segment) {
    drops_.readAll(segment);
    readAhead_.forget(segment);
  };
}

void JXOutboxQueue::adopt() {
  segments_.adoptAll(hosts_, [&](const std::vector<JXOutboxEntry>& requests) {
    const std::uint64_t first = index_.nextId();
    try {
      for (const JXOutboxEntry& request : requests) {
        const std::uint64_t id = index_.push(request).id;
        if (request.hasFailed)
          failures_.adopt(id, request.segment->adoptedFailures(request.offset));
        updateOldest(request.bornMs);
      }
    } catch (...) {
      while (index_.nextId() != first) {
        index_.popNewest();
        failures_.remove(index_.nextId());
      }
      throw;
    }
  });
}

std::optional<std::uint64_t> JXOutboxQueue::add(std::string_view url, std::string_view body,
                                                const JXRequestOrigin& origin, bool awaitsDecision,
                                                JXDeferredChanges* changes) {
  const std::uint64_t bytes = std::uint64_t{url.size()} + body.size();
  if (bytes > bounds_.maxBytes || bytes > kJXMaxPayload - kJXRequestHeadSize) {
    return rejectRequest(body, JXDropReason::TooLarge);
  }
  const JXStoredTime now = segments_.now();
  JXOutboxEntry entry;
  entry.bornMs = now.runningMs;
  entry.bytes = static_cast<std::uint32_t>(bytes);
  entry.source = JXSendFilter::sourceOf(url);
  entry.origin = origin;
  entry.host = hosts_.slotOf(url);
  entry.hasWaitingMarker = JXSendFilter::hasWaitingMarker(body);
  entry.awaitsDecision = awaitsDecision;
  entry.state = State::InFlight;  // not evicted while it is being stored
  // All memory is allocated before the write: a request that is in a file must be in the index.
  const std::uint64_t id = index_.push(entry).id;
  bool isStored = false;
  try {
    isStored = store(id, url, body, now, origin, changes);
  } catch (...) {
    index_.popNewest();
    throw;
  }
  if (!isStored) {
    index_.popNewest();
    return rejectRequest(body, JXDropReason::NoStorage);
  }
  ++counters_.added;
  updateOldest(entry.bornMs);
  try {
    dropOverLimits(now.runningMs);
  } catch (...) {
    // Out of memory: the next request or sync applies the limits.
  }
  return id;
}

// Stores the content of the request that was pushed last.
bool JXOutboxQueue::store(std::uint64_t id, std::string_view url, std::string_view body,
                          const JXStoredTime& now, const JXRequestOrigin& origin,
                          JXDeferredChanges* changes) {
  std::uint32_t offset = 0;
  JXOutboxSegment* const segment = segments_.append(url, body, now, origin, offset, changes);
  if (segment == nullptr && !keepInMemory(id, url, body, now.dayMs)) return false;
  JXOutboxEntry& stored = *index_.find(id);
  stored.segment = segment;
  stored.offset = offset;
  stored.state = State::Queued;
  return true;
}

std::nullopt_t JXOutboxQueue::rejectRequest(std::string_view body, JXDropReason reason) noexcept {
  count(reason);
  drops_.record(reason, body);
  return std::nullopt;
}

// Stores the request in memory and evicts the oldest ones there.
bool JXOutboxQueue::keepInMemory(std::uint64_t id, std::string_view url, std::string_view body,
                                 std::int64_t createdMs) {
  if (bounds_.maxInMemory == 0) return false;
  memory_.emplace(id, StoredInMemory{createdMs, std::string(url), std::string(body)});
  for (auto next = memory_.begin();
       next != memory_.end() && memory_.size() > bounds_.maxInMemory;) {
    JXOutboxEntry& entry = *index_.find((next++)->first);
    if (entry.state != State::InFlight) drop(entry, JXDropReason::NoStorage);
  }
  return true;
}

void JXOutboxQueue::updateOldest(std::int64_t bornMs) { oldestMs_ = std::min(oldestMs_, bornMs); }

void JXOutboxQueue::dropOverLimits(std::int64_t nowMs) {
  dropExpired(nowMs);
  const std::size_t maxRequests = std::max<std::size_t>(bounds_.maxRequests, 1);
  while (index_.count() > maxRequests && dropOldest(JXDropReason::TooMany)) {
  }
  while (index_.bytes() > bounds_.maxBytes && dropOldest(JXDropReason::TooLarge)) {
  }
  segments_.finishModified();
}

// Drops the oldest request that is not in flight, because the server may already have stored what
// it receives. Keeps the newest request, so that requests in flight never displace it. Returns
// false when there is none.
bool JXOutboxQueue::dropOldest(JXDropReason reason) {
  JXOutboxEntry* oldest = nullptr;
  index_.forEach([&](JXOutboxEntry& entry) {
    if (entry.state != State::InFlight && entry.id + 1 != index_.nextId()) oldest = &entry;
    return oldest == nullptr && entry.id + 1 != index_.nextId();
  });
  if (oldest != nullptr) drop(*oldest, reason);
  return oldest != nullptr;
}

void JXOutboxQueue::dropExpired() {
  dropExpired(segments_.now().runningMs);
  segments_.finishModified();
}

// Traverses all requests only when the oldest may have expired. A request in flight is checked when
// it is requeued.
void JXOutboxQueue::dropExpired(std::int64_t nowMs) {
  if (!isExpired(oldestMs_, nowMs, bounds_.maxAge)) return;
  std::vector<std::uint64_t> expired;
  index_.forEach([&](const JXOutboxEntry& entry) {
    const bool expires = isExpired(entry.bornMs, nowMs, bounds_.maxAge);
    if (expires && entry.state != State::InFlight) expired.push_back(entry.id);
    return true;
  });
  oldestMs_ = std::numeric_limits<std::int64_t>::max();
  index_.forEach([&](const JXOutboxEntry& entry) {
    if (!isExpired(entry.bornMs, nowMs, bounds_.maxAge)) updateOldest(entry.bornMs);
    return true;
  });
  for (const std::uint64_t id : expired)
    drop(*index_.find(id), JXDropReason::TooOld);
}

// Needs no memory, so that a limit or a purge is applied when there is none.
void JXOutboxQueue::drop(JXOutboxEntry& entry, JXDropReason reason) noexcept {
  // A rejected request was counted already; it is only not moved to the dead letters.
  if (entry.state != State::Rejected) {
    count(reason);
    const bool isInMemory = entry.segment == nullptr;
    drops_.record(reason, isInMemory ? memory_.at(entry.id).body : std::string_view(), &entry);
  }
  release(entry);
}

void JXOutboxQueue::count(JXDropReason reason) noexcept {
  ++(counters_.*kDropCounters[static_cast<std::size_t>(reason) - 1]);
}

// Removes a request. JXOutboxSegments::finishModified writes the acknowledgements of all released
// requests together.
void JXOutboxQueue::release(JXOutboxEntry& entry) noexcept {
  if (entry.state == State::Rejected) {
    rejectedBytes_ -= entry.bytes;
    rejected_.erase(std::find(rejected_.begin(), rejected_.end(), entry.id));
  }
  failures_.remove(entry.id);
  if (entry.segment == nullptr) {
    memory_.erase(entry.id);
  } else {
    entry.segment->acknowledge(entry.offset);
  }
  index_.remove(entry);
}

std::optional<JXOutboxRequest> JXOutboxQueue::take(const JXOutboxPick& pick,
                                                   const JXSendFilter& filter) {
  if (!pick.isFurther) {
    folderChange_ = segments_.folderChange();
    unmarked_ = nullptr;
    if (folderChange_ == JXFolderWatch::Change::New) applyMarks();
  }
  index_.chooseBefore(pick.before);
  const auto next = [&] {
    return pick.order == JXOutboxPick::Order::Retry
               ? failures_.nextRetry(pick.host, filter, segments_.now())
               : index_.next(pick, filter);
  };
  while (JXOutboxEntry* entry = next()) {
    if (applyMarkOf(*entry)) continue;
    JXOutboxRequest request;
    const int error = readRestored(*entry, request);
    if (error == 0) {
      request.url = hosts_.targetOf(request.url);
      if (entry->hasFailed) request.failures = failures_.of(entry->id);
      reserveRejections();
      entry->state = State::InFlight;
      return request;
    }
    // Its file cannot be restored now, for example because the disk is full.
    if (entry->segment != nullptr && entry->segment->lost) return std::nullopt;
    dropUnreadable(*entry, error);
  }
  readAhead_.clear();
  return std::nullopt;
}

void JXOutboxQueue::writeFailures(const JXOutboxEntry& entry) {
  if (entry.segment == nullptr || !entry.hasFailed) return;
  const int error =
      entry.segment->writeFailures(entry.offset, failures_.of(entry.id), segments_.now());
  if (error != 0) report_.failed("append the failures of a request", error);
}

std::uint16_t JXOutboxQueue::mostStops(std::uint32_t source) {
  std::uint16_t most = 0;
  index_.forEach([&](const JXOutboxEntry& entry) {
    if (entry.source == source) most = std::max(most, entry.origin.stops);
    return true;
  });
  return most;
}

void JXOutboxQueue::applyPurgeMarks() {
  if (segments_.folderChange() != JXFolderWatch::Change::None) applyMarks();
}

// After a recent change of the folder, checks the segment of the request to be taken: a list of the
// folder for each request would take most of the time while segments are created and deleted.
// Returns whether marks were applied.
bool JXOutboxQueue::applyMarkOf(const JXOutboxEntry& entry) {
  const bool isChecked = entry.segment == nullptr || entry.segment == unmarked_;
  if (folderChange_ != JXFolderWatch::Change::Recent || isChecked) return false;
  unmarked_ = entry.segment;
  if (!mayHavePurgeMark(entry.segment->path())) return false;
  applyMarks();
  return true;
}

void JXOutboxQueue::applyMarks() try {
  for (const JXOutboxSegments::Purged& purged : segments_.markedForPurge()) {
    const std::uint64_t number = purged.segment->number();
    std::vector<std::uint64_t> ids;
    index_.forEach([&](const JXOutboxEntry& entry) {
      if (entry.segment == purged.segment && entry.offset < purged.end) {
        ids.push_back(entry.id);
      }
      return true;
    });
    for (const std::uint64_t id : ids)
      drop(*index_.find(id), JXDropReason::Purged);
    segments_.finishModified();
    // A segment without requests was deleted, with its mark.
    const JXOutboxSegment* const left = segments_.find(number);
    if (left != nullptr && !left->hasUnwrittenAcknowledgements()) removePurgeMark(left->path());
  }
} catch (...) {
  segments_.recheckPurgeMarks();
  throw;
}

void JXOutboxQueue::requeue(std::uint64_t id) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state != State::InFlight) return;
  index_.requeue(*entry);
  if (entry->segment == nullptr && memory_.size() > bounds_.maxInMemory) {
    drop(*entry, JXDropReason::NoStorage);
  } else {
    updateOldest(entry->bornMs);
  }
  dropOverLimits(segments_.now().runningMs);
}

bool JXOutboxQueue::requeueFailed(std::uint64_t id, const JXRequestFailures& failures) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state != State::InFlight) return true;
  try {
    failures_.record(id, failures, segments_.now());
    index_.markFailed(*entry);
    writeFailures(*entry);
  } catch (...) {
    // Out of memory: this process or the next one retries the request without knowing its failures.
  }
  const bool isKnown = entry->hasFailed;
  requeue(id);
  return isKnown;
}

void JXOutboxQueue::markDelivered(JXDeliveredRequests& requests) noexcept {
  for (std::uint64_t& id : requests.ids) {
    JXOutboxEntry* const entry = id != 0 ? index_.find(id) : nullptr;
    if (entry == nullptr || entry->state == State::Rejected) {
      id = 0;
      continue;
    }
    ++counters_.delivered;
    release(*entry);
  }
  segments_.finishModified();
}

void JXOutboxQueue::clear() noexcept {
  while (JXOutboxEntry* entry = index_.oldest())
    drop(*entry, JXDropReason::Purged);
  segments_.finishModified();
  segments_.finishCurrent();
}

JXOutboxCounters JXOutboxQueue::counters() const {
  JXOutboxCounters counters = counters_;
  counters.storageErrors = report_.failures();
  counters.damaged = report_.damagedFiles();
  counters.quarantinedDeleted = report_.deletedQuarantineFiles();
  counters.queued = index_.count() - rejected_.size();
  counters.queuedBytes = index_.bytes() - rejectedBytes_;
  counters.inMemory = memory_.size() + segments_.lostRequests();
  return counters;
}

}  // namespace jx
