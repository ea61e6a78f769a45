// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// The operations of JXOutboxQueue that write requests again.
#include <vector>

#include "jx/core/storage/JXOutboxQueue.h"

namespace jx {
namespace {

// Requests written per repair step. A calling thread may be waiting for the lock in the meantime.
constexpr std::size_t kRepairStep = 32;

}  // namespace

bool JXOutboxQueue::repairSome() {
  if (!needsRepair()) return false;
  // Requests of deleted files are older than those in memory.
  bool succeeded = !segments_.hasLost() || segments_.restoreLost();
  if (succeeded) succeeded = writeSomeOfMemory();
  if (succeeded) succeeded = moveSomeOfObsolete();
  if (succeeded && !needsRepair()) report_.recovered();
  return succeeded && needsRepair();
}

// Appends the remaining requests of a segment whose other requests are acknowledged, so that it can
// be deleted.
bool JXOutboxQueue::moveSomeOfObsolete() {
  JXOutboxSegment* const obsolete = segments_.toRetire();
  if (obsolete == nullptr) return true;
  std::vector<std::uint64_t> ids;
  index_.forEach([&](const JXOutboxEntry& entry) {
    if (entry.segment == obsolete) ids.push_back(entry.id);
    return ids.size() < kRepairStep;
  });
  // Its other requests could not be read; the next process tries again.
  obsolete->isUnreadable = ids.empty();
  for (const std::uint64_t id : ids) {
    JXOutboxEntry& entry = *index_.find(id);
    JXOutboxRequest request;
    const int error = read(entry, request);
    if (error != 0) {
      dropUnreadable(entry, error);
      continue;
    }
    std::uint32_t offset = 0;
    JXOutboxSegment* const segment =
        segments_.append(request.url, request.body, {0, request.createdMs, entry.bornMs, 0, 0},
                         entry.origin, offset);
    if (segment == nullptr) return false;
    obsolete->acknowledge(entry.offset);
    entry.segment = segment;
    entry.offset = offset;
    writeFailures(entry);
  }
  segments_.finishModified();
  return true;
}

bool JXOutboxQueue::writeSomeOfMemory() {
  for (std::size_t done = 0; done < kRepairStep && !memory_.empty(); ++done) {
    const auto oldest = memory_.begin();
    JXOutboxEntry& entry = *index_.find(oldest->first);
    const StoredInMemory& stored = oldest->second;
    entry.segment =
        segments_.append(stored.url, stored.body, {0, stored.createdMs, entry.bornMs, 0, 0},
                         entry.origin, entry.offset);
    if (entry.segment == nullptr) return false;
    memory_.erase(oldest);
    writeFailures(entry);
  }
  return true;
}

}  // namespace jx
