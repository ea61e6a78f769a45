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

void JXOutboxDrops::record(JXDropReason reason, std::string_view body, const JXOutboxEntry* entry) {
  if (!isRecording_ || drops_.size() >= kMaxDrops) return;
  JXOutboxDrop drop;
  drop.reason = reason;
  if (entry != nullptr && entry->segment != nullptr) {
    drop.segment = entry->segment->shared_from_this();
    drop.offset = entry->offset;
    drop.bytes = entry->bytes;
  } else if (bodyBytes_ + body.size() <= kMaxBodyBytes) {
    drop.body = std::string(body);
    bodyBytes_ += body.size();
  }
  drops_.push_back(std::move(drop));
}

std::vector<JXOutboxDrop> JXOutboxDrops::take(std::size_t limit) {
  std::vector<JXOutboxDrop> taken;
  taken.reserve(std::min(limit, drops_.size()));
  while (taken.size() < limit && !drops_.empty()) {
    bodyBytes_ -= drops_.front().body.size();
    taken.push_back(std::move(drops_.front()));
    drops_.pop_front();
  }
  return taken;
}

void JXOutboxDrop::readBody() {
  std::string payload;
  if (segment != nullptr && segment->read(offset, bytes, payload) == 0) {
    body = std::string(decodeRecord(payload).body);
  }
  segment.reset();
}

}  // namespace jx
