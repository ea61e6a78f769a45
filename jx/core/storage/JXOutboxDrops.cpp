// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxDrops.h"

#include <algorithm>
#include <utility>

#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {
namespace {

// Limits memory and deleted files kept open when the application's callback never returns.
constexpr std::size_t kMaxDrops = 10'000;
constexpr std::size_t kMaxBodyBytes = 8u * 1024 * 1024;

}  // namespace

void JXOutboxDrops::record(JXDropReason reason, std::string_view body) {
  if (!isRecording_) return;
  Drop drop;
  drop.reason = reason;
  if (bodyBytes_ + body.size() <= kMaxBodyBytes) drop.body = std::string(body);
  push(std::move(drop));
}

void JXOutboxDrops::record(JXDropReason reason, const JXOutboxEntry& entry,
                           std::string_view bodyInMemory) {
  if (entry.segment == nullptr) return record(reason, bodyInMemory);
  if (!isRecording_) return;
  Drop drop;
  drop.reason = reason;
  drop.segment = entry.segment->shared_from_this();
  drop.offset = entry.offset;
  drop.bytes = entry.bytes;
  push(std::move(drop));
}

void JXOutboxDrops::push(Drop drop) {
  if (drops_.size() >= kMaxDrops) return;
  bodyBytes_ += drop.body.size();
  drops_.push_back(std::move(drop));
}

std::vector<JXOutboxDrops::Drop> JXOutboxDrops::take(std::size_t limit) {
  std::vector<Drop> taken;
  taken.reserve(std::min(limit, drops_.size()));
  while (taken.size() < limit && !drops_.empty()) {
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
