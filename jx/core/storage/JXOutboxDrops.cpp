// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxDrops.h"

#include <algorithm>
#include <utility>

#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {
namespace {

// A host whose callback never returns must not make memory grow, nor keep deleted files for ever.
constexpr std::size_t kMostDrops = 10'000;
constexpr std::size_t kMostBodyBytes = 8u * 1024 * 1024;

}  // namespace

void JXOutboxDrops::note(JXDropReason reason, std::string_view body) {
  if (!remembers_) return;
  Drop drop;
  drop.reason = reason;
  if (bodyBytes_ + body.size() <= kMostBodyBytes) drop.body = std::string(body);
  push(std::move(drop));
}

void JXOutboxDrops::note(JXDropReason reason, const JXOutboxEntry& entry,
                         std::string_view bodyInMemory) {
  if (entry.segment == nullptr) return note(reason, bodyInMemory);
  if (!remembers_) return;
  Drop drop;
  drop.reason = reason;
  drop.segment = entry.segment->shared_from_this();
  drop.offset = entry.offset;
  drop.bytes = entry.bytes;
  push(std::move(drop));
}

void JXOutboxDrops::push(Drop drop) {
  if (drops_.size() >= kMostDrops) return;
  bodyBytes_ += drop.body.size();
  drops_.push_back(std::move(drop));
}

std::vector<JXOutboxDrops::Drop> JXOutboxDrops::take(std::size_t most) {
  std::vector<Drop> taken;
  taken.reserve(std::min(most, drops_.size()));
  while (taken.size() < most && !drops_.empty()) {
    bodyBytes_ -= drops_.front().body.size();
    taken.push_back(std::move(drops_.front()));
    drops_.pop_front();
  }
  return taken;
}

std::string bodyOf(JXOutboxDrops::Drop drop) {
  if (drop.segment == nullptr) return std::move(drop.body);
  std::string payload;
  if (drop.segment->read(drop.offset, drop.bytes, payload) != 0) return {};
  return std::string(decodeRecord(payload).body);
}

}  // namespace jx
