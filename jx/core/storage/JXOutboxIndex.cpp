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
  hosts_.added(entry.host);
  if (entry.hasFailed) ++hosts_.at(entry.host).failed;
  return entries_.back();
}

void JXOutboxIndex::popNewest() noexcept {
  const JXOutboxEntry newest = entries_.back();
  entries_.pop_back();
  --nextId_;
  --count_;
  bytes_ -= newest.bytes;
  if (newest.hasFailed) --hosts_.at(newest.host).failed;
  hosts_.removed(newest.host);
}

JXOutboxEntry* JXOutboxIndex::find(std::uint64_t id) {
  // Nearly every request is at this position, because only gaps of erased entries change it.
  const std::uint64_t first = entries_.empty() ? 0 : entries_.front().id;
  if (id >= first && id - first < entries_.size()) {
    JXOutboxEntry& entry = entries_[static_cast<std::size_t>(id - first)];
    if (entry.id == id) return entry.state != State::Gone ? &entry : nullptr;
  }
  const auto found = from(id);
  const bool exists = found != entries_.end() && found->id == id && found->state != State::Gone;
  return exists ? &*found : nullptr;
}

JXOutboxEntry* JXOutboxIndex::oldest() { return entries_.empty() ? nullptr : &entries_.front(); }

JXOutboxEntry* JXOutboxIndex::next(const JXOutboxPick& pick, const JXSendFilter& filter) {
  if (pick.order == JXOutboxPick::Order::Newest) return newestNew(pick.host, filter);
  if (pick.order == JXOutboxPick::Order::Random) return randomNew(pick.host, filter, pick.draw);
  return oldestNew(pick.host, filter);
}

bool JXOutboxIndex::maySend(const JXOutboxEntry& entry, std::uint32_t host,
                            const JXSendFilter& filter) const {
  const JXOutboxHosts::Host& its = hosts_.all()[entry.host];
  return entry.state == State::Queued && entry.id < before_ &&
         (host == 0 ? its.isValid : its.id == host) && filter.allows(entry);
}

JXOutboxEntry* JXOutboxIndex::oldestNew(std::uint32_t host, const JXSendFilter& filter) {
  JXOutboxHosts::Host* const known = hosts_.find(host);
  bool foundQueued = false;
  for (auto entry = from(known != nullptr ? known->firstNew : 0); entry != entries_.end();
       ++entry) {
    if (entry->state != State::Queued || entry->hasFailed) continue;
    if (known != nullptr && &hosts_.at(entry->host) != known) continue;
    // The first queued entry, even if it must not be sent now.
    if (!foundQueued && known != nullptr) known->firstNew = entry->id;
    foundQueued = true;
    if (maySend(*entry, host, filter)) return &*entry;
  }
  if (!foundQueued && known != nullptr) known->firstNew = nextId_;
  return nullptr;
}

JXOutboxEntry* JXOutboxIndex::newestNew(std::uint32_t host, const JXSendFilter& filter) {
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const auto& each) {
    return !each.hasFailed && maySend(each, host, filter);
  });
  return found != entries_.rend() ? &*found : nullptr;
}

JXOutboxEntry* JXOutboxIndex::randomNew(std::uint32_t host, const JXSendFilter& filter,
                                        double draw) {
  const auto isChoice = [&](const JXOutboxEntry& each) {
    return !each.hasFailed && maySend(each, host, filter);
  };
  const auto choices = std::count_if(entries_.begin(), entries_.end(), isChoice);
  if (choices == 0) return nullptr;
  auto left = static_cast<std::ptrdiff_t>(draw * static_cast<double>(choices));
  left = std::clamp<std::ptrdiff_t>(left, 0, choices - 1);
  return &*std::find_if(entries_.begin(), entries_.end(),
                        [&](const auto& each) { return isChoice(each) && left-- == 0; });
}

void JXOutboxIndex::requeue(JXOutboxEntry& entry) {
  entry.state = State::Queued;
  JXOutboxHosts::Host& host = hosts_.at(entry.host);
  if (!entry.hasFailed) host.firstNew = std::min(host.firstNew, entry.id);
}

void JXOutboxIndex::markFailed(JXOutboxEntry& entry) {
  if (!entry.hasFailed) ++hosts_.at(entry.host).failed;
  entry.hasFailed = true;
}

void JXOutboxIndex::remove(JXOutboxEntry& entry) {
  entry.state = State::Gone;
  --count_;
  bytes_ -= entry.bytes;
  if (entry.hasFailed) --hosts_.at(entry.host).failed;
  hosts_.removed(entry.host);
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
