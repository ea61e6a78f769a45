// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxQueue.h"

#include <algorithm>
#include <cerrno>

#include "jx/core/storage/JXPurgeMark.h"

namespace jx {
namespace {

using State = JXOutboxEntry::State;

// 2025-01-01T00:00:00Z. A TV without a battery clock starts in 1970 and learns the time later: a
// request from before this instant has an unknown age.
constexpr std::int64_t kFirstPlausibleMs = 1'735'689'600'000;
// What one step of a repair does while the caller's thread may be waiting for the lock.
constexpr int kRepairStep = 32;

}  // namespace

JXOutboxQueue::JXOutboxQueue(JXOutboxSegments& segments, JXStorageReport& report,
                             const JXOutboxBounds& bounds, std::shared_ptr<const JXClock> clock)
    : segments_(segments), report_(report), bounds_(bounds), clock_(std::move(clock)) {}

void JXOutboxQueue::adopt() {
  segments_.adoptAll([&](JXOutboxSegment& segment, const JXStoredRequest& request) {
    JXOutboxEntry entry;
    entry.createdMs = request.createdMs;
    entry.segment = &segment;
    entry.offset = request.offset;
    entry.bytes = request.bytes;
    index_.push(entry);
    noteCreated(request.createdMs);
  });
}

std::optional<std::uint64_t> JXOutboxQueue::add(std::string_view url, std::string_view body) {
  const std::uint64_t bytes = std::uint64_t{url.size()} + body.size();
  if (bytes > bounds_.maxBytes || bytes > kJXMaxPayload - kJXRequestHeadSize) {
    return rejectRequest(body, JXDropReason::TooLarge);
  }
  JXOutboxEntry entry;
  entry.createdMs = clock_->nowMs();
  entry.bytes = static_cast<std::uint32_t>(bytes);
  entry.segment = segments_.append(url, body, entry.createdMs, entry.offset);
  if (entry.segment == nullptr && !keepInMemory(url, body)) {
    return rejectRequest(body, JXDropReason::NoStorage);
  }
  const std::uint64_t id = index_.push(entry).id;
  ++counters_.added;
  noteCreated(entry.createdMs);
  dropBeyondBounds(entry.createdMs);
  return id;
}

std::nullopt_t JXOutboxQueue::rejectRequest(std::string_view body, JXDropReason reason) {
  count(reason);
  drops_.note(reason, body);
  return std::nullopt;
}

// The next request to be pushed stays in memory; the oldest there make room.
bool JXOutboxQueue::keepInMemory(std::string_view url, std::string_view body) {
  if (bounds_.maxInMemory == 0) return false;
  while (memory_.size() >= bounds_.maxInMemory) {
    drop(*index_.find(memory_.begin()->first), JXDropReason::NoStorage);
  }
  memory_.emplace(index_.nextId(), Texts{std::string(url), std::string(body)});
  return true;
}

void JXOutboxQueue::noteCreated(std::int64_t createdMs) {
  if (createdMs >= kFirstPlausibleMs) oldestMs_ = std::min(oldestMs_, createdMs);
}

void JXOutboxQueue::dropBeyondBounds(std::int64_t nowMs) {
  dropExpired(nowMs);
  const std::size_t maxRequests = std::max<std::size_t>(bounds_.maxRequests, 1);
  while (index_.count() > maxRequests)
    drop(*index_.oldest(), JXDropReason::TooMany);
  while (index_.bytes() > bounds_.maxBytes)
    drop(*index_.oldest(), JXDropReason::TooLarge);
  finishModifiedSegments();
}

// The walk over all requests happens only when the oldest may have expired. A request from the
// future, made before a clock was set back, does not expire.
void JXOutboxQueue::dropExpired(std::int64_t nowMs) {
  const std::int64_t maxAgeMs = bounds_.maxAge.count();
  const auto isExpired = [&](std::int64_t createdMs) {
    return createdMs >= kFirstPlausibleMs && createdMs < nowMs && nowMs - createdMs > maxAgeMs;
  };
  if (!isExpired(oldestMs_)) return;
  std::vector<std::uint64_t> expired;
  oldestMs_ = std::numeric_limits<std::int64_t>::max();
  index_.forEach([&](const JXOutboxEntry& entry) {
    if (isExpired(entry.createdMs)) {
      expired.push_back(entry.id);
    } else {
      noteCreated(entry.createdMs);
    }
    return true;
  });
  for (const std::uint64_t id : expired)
    drop(*index_.find(id), JXDropReason::TooOld);
}

void JXOutboxQueue::drop(JXOutboxEntry& entry, JXDropReason reason) {
  // A refused one was counted as rejected; only its place among the dead letters is lost.
  if (entry.state != State::Refused) {
    count(reason);
    const bool isInMemory = entry.segment == nullptr;
    drops_.note(reason, entry, isInMemory ? memory_.at(entry.id).body : std::string_view());
  }
  release(entry);
}

void JXOutboxQueue::count(JXDropReason reason) {
  switch (reason) {
    case JXDropReason::TooMany:
      ++counters_.droppedTooMany;
      break;
    case JXDropReason::TooLarge:
      ++counters_.droppedTooLarge;
      break;
    case JXDropReason::TooOld:
      ++counters_.droppedTooOld;
      break;
    case JXDropReason::NoStorage:
      ++counters_.droppedNoStorage;
      break;
    case JXDropReason::Unreadable:
      ++counters_.droppedUnreadable;
      break;
    case JXDropReason::Purged:
      ++counters_.purged;
      break;
    case JXDropReason::None:
      break;
  }
}

// Forgets a request. Its file is told by `finishModifiedSegments`, once for all that were released.
void JXOutboxQueue::release(JXOutboxEntry& entry) {
  if (entry.state == State::Refused) {
    refusedBytes_ -= entry.bytes;
    refused_.erase(std::find(refused_.begin(), refused_.end(), entry.id));
  }
  if (entry.segment == nullptr) {
    memory_.erase(entry.id);
  } else {
    entry.segment->settle(entry.offset);
    if (touched_.empty() || touched_.back() != entry.segment) touched_.push_back(entry.segment);
  }
  index_.remove(entry);
}

void JXOutboxQueue::finishModifiedSegments() {
  std::sort(touched_.begin(), touched_.end());
  touched_.erase(std::unique(touched_.begin(), touched_.end()), touched_.end());
  for (JXOutboxSegment* segment : touched_)
    segments_.finish(*segment);
  touched_.clear();
}

std::optional<JXOutboxRequest> JXOutboxQueue::take(const std::vector<std::uint64_t>& except) {
  applyPurgeMarks();
  while (JXOutboxEntry* entry = index_.nextQueued(except)) {
    JXOutboxRequest request;
    const int error = read(*entry, request);
    if (error == 0) {
      entry->state = State::InFlight;
      return request;
    }
    dropUnreadable(*entry, error);
  }
  return std::nullopt;
}

int JXOutboxQueue::read(const JXOutboxEntry& entry, JXOutboxRequest& request) const {
  request.id = entry.id;
  request.createdMs = entry.createdMs;
  if (entry.segment == nullptr) {
    const Texts& texts = memory_.at(entry.id);
    request.url = texts.url;
    request.body = texts.body;
    return 0;
  }
  std::string payload;
  const int error = entry.segment->read(entry.offset, entry.bytes, payload);
  if (error != 0) return error;
  const JXOutboxRecord record = decodeRecord(payload);
  if (record.kind != JXRecordKind::Request) return EBADMSG;
  request.url = std::string(record.url);
  // The body is what is left of the payload in its own memory.
  payload.erase(0, payload.size() - record.body.size());
  request.body = std::move(payload);
  return 0;
}

// A damaged request is set aside and done with. One that the disk refuses to read stays on it for
// the next start, when the disk may have changed its mind.
void JXOutboxQueue::dropUnreadable(JXOutboxEntry& entry, int error) {
  report_.failed("read a request", error);
  if (error != EBADMSG) {
    index_.remove(entry);
    return;
  }
  bool copied = false;
  const int copyError = entry.segment->setAsideRequest(entry.offset, entry.bytes, copied);
  if (copyError != 0) report_.failed("set a damaged request aside", copyError);
  if (copied) report_.damaged(entry.segment->path());
  drop(entry, JXDropReason::Unreadable);
  finishModifiedSegments();
}

void JXOutboxQueue::applyPurgeMarks() {
  for (const JXOutboxSegments::Purged& purged : segments_.markedForPurge()) {
    std::vector<std::uint64_t> ids;
    index_.forEach([&](const JXOutboxEntry& entry) {
      if (entry.segment == purged.segment.get() && entry.offset < purged.end) {
        ids.push_back(entry.id);
      }
      return true;
    });
    for (const std::uint64_t id : ids)
      drop(*index_.find(id), JXDropReason::Purged);
    finishModifiedSegments();
    if (!purged.segment->hasUnwrittenSettled()) removePurgeMark(purged.segment->path());
  }
}

void JXOutboxQueue::requeue(std::uint64_t id) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state != State::InFlight) return;
  entry->state = State::Queued;
  index_.noteQueued(id);
}

bool JXOutboxQueue::markDelivered(std::uint64_t id) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state == State::Refused) return false;
  ++counters_.delivered;
  release(*entry);
  finishModifiedSegments();
  return true;
}

void JXOutboxQueue::clear() {
  while (JXOutboxEntry* entry = index_.oldest())
    drop(*entry, JXDropReason::Purged);
  finishModifiedSegments();
  segments_.finishCurrent();
}

bool JXOutboxQueue::refuse(std::uint64_t id, int status) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state == State::Refused) return false;
  ++counters_.rejected;
  entry->state = State::Refused;
  entry->status = static_cast<std::int16_t>(status);
  refused_.push_back(id);
  refusedBytes_ += entry->bytes;
  return true;
}

std::optional<JXOutboxQueue::Refused> JXOutboxQueue::nextRefused() {
  while (!refused_.empty()) {
    JXOutboxEntry& entry = *index_.find(refused_.front());
    Refused refused;
    refused.status = entry.status;
    const int error = read(entry, refused.request);
    if (error == 0) return refused;
    report_.failed("read a request", error);
    release(entry);
    finishModifiedSegments();
  }
  return std::nullopt;
}

void JXOutboxQueue::settleRefused(std::uint64_t id) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state != State::Refused) return;
  release(*entry);
  finishModifiedSegments();
}

bool JXOutboxQueue::repairSome() {
  if (!needsRepair()) return false;
  // Those of deleted files are older.
  const bool took = segments_.hasLost() ? rewriteLostRequests() : writeSomeOfMemory();
  if (took && !needsRepair()) report_.recovered();
  return took && needsRepair();
}

// Copies requests out of deleted files, which live as long as they are open here.
bool JXOutboxQueue::rewriteLostRequests() {
  int done = 0;
  bool took = true;
  std::vector<std::uint64_t> unreadable;
  index_.forEach([&](JXOutboxEntry& entry) {
    if (entry.segment == nullptr || !entry.segment->lost) return true;
    JXOutboxRequest request;
    if (read(entry, request) != 0) {
      unreadable.push_back(entry.id);
      return true;
    }
    std::uint32_t offset = 0;
    JXOutboxSegment* const segment =
        segments_.append(request.url, request.body, entry.createdMs, offset);
    took = segment != nullptr;
    if (!took) return false;
    entry.segment->settle(entry.offset);
    touched_.push_back(entry.segment);
    entry.segment = segment;
    entry.offset = offset;
    return ++done < kRepairStep;
  });
  for (const std::uint64_t id : unreadable)
    dropUnreadable(*index_.find(id), EBADMSG);
  finishModifiedSegments();
  return took;
}

bool JXOutboxQueue::writeSomeOfMemory() {
  for (int done = 0; done < kRepairStep && !memory_.empty(); ++done) {
    const auto oldest = memory_.begin();
    JXOutboxEntry& entry = *index_.find(oldest->first);
    entry.segment =
        segments_.append(oldest->second.url, oldest->second.body, entry.createdMs, entry.offset);
    if (entry.segment == nullptr) return false;
    memory_.erase(oldest);
  }
  return true;
}

JXOutboxCounters JXOutboxQueue::counters() const {
  JXOutboxCounters counters = counters_;
  counters.storageErrors = report_.failures();
  counters.damaged = report_.damagedFiles();
  counters.queued = index_.count() - refused_.size();
  counters.queuedBytes = index_.bytes() - refusedBytes_;
  counters.inMemory = memory_.size();
  return counters;
}

}  // namespace jx
