// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxIndex.h"

#include <algorithm>

#include "jx/core/storage/JXSendFilter.h"

namespace jx {
namespace {

using State = JXOutboxEntry::State;

// Erasing fewer entries than this is not worth traversing all.
constexpr std::size_t kMinGoneToCompact = 1'024;

}  // namespace

JXOutboxEntry& JXOutboxIndex::push(JXOutboxEntry entry) {
  entry.id = nextId_;
  entries_.push_back(entry);
  ++nextId_;
  ++count_;
  bytes_ += entry.bytes;
  return entries_.back();
}

JXOutboxEntry* JXOutboxIndex::find(std::uint64_t id) {
  const auto found = from(id);
  const bool exists = found != entries_.end() && found->id == id && found->state != State::Gone;
  return exists ? &*found : nullptr;
}

JXOutboxEntry* JXOutboxIndex::oldest() { return entries_.empty() ? nullptr : &entries_.front(); }

JXOutboxEntry* JXOutboxIndex::nextQueued(const std::vector<std::uint64_t>& except,
                                         const JXSendFilter& filter) {
  bool foundQueued = false;
  for (auto entry = from(firstQueued_); entry != entries_.end(); ++entry) {
    if (entry->state != State::Queued) continue;
    // The first queued entry, even if it must not be sent now.
    if (!foundQueued) firstQueued_ = entry->id;
    foundQueued = true;
    if (!filter.allows(*entry)) continue;
    if (std::find(except.begin(), except.end(), entry->id) == except.end()) return &*entry;
  }
  if (!foundQueued) firstQueued_ = nextId_;
  return nullptr;
}

void JXOutboxIndex::markQueued(std::uint64_t id) { firstQueued_ = std::min(firstQueued_, id); }

void JXOutboxIndex::remove(JXOutboxEntry& entry) {
  entry.state = State::Gone;
  --count_;
  bytes_ -= entry.bytes;
  const auto isGone = [](const JXOutboxEntry& each) { return each.state == State::Gone; };
  while (!entries_.empty() && isGone(entries_.front()))
    entries_.pop_front();
  const std::size_t gone = entries_.size() - count_;
  if (gone > kMinGoneToCompact && gone > entries_.size() / 2) {
    entries_.erase(std::remove_if(entries_.begin(), entries_.end(), isGone), entries_.end());
  }
}

std::deque<JXOutboxEntry>::iterator JXOutboxIndex::from(std::uint64_t id) {
  return std::lower_bound(
      entries_.begin(), entries_.end(), id,
      [](const JXOutboxEntry& entry, std::uint64_t wanted) { return entry.id < wanted; });
}

}  // namespace jx
