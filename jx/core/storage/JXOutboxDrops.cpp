// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxDrops.h"

#include <algorithm>
#include <string>
#include <utility>

#include "jx/core/storage/JXEventId.h"
#include "jx/core/storage/JXOutboxRecord.h"

namespace jx {
namespace {

// Limits the memory used when the application's callback never returns.
constexpr std::size_t kMaxDrops = 10'000;

}  // namespace

void JXOutboxDrops::record(JXDropReason reason, std::string_view body, const JXOutboxEntry* entry) {
  if (!isRecording_ || records_.size() >= kMaxDrops) return;
  Record record;
  record.drop.reason = reason;
  if (entry != nullptr && entry->segment != nullptr) {
    record.segment = entry->segment;
    record.offset = entry->offset;
    record.bytes = entry->bytes;
  } else {
    record.drop.eventId = eventIdOf(body);
  }
  records_.push_back(std::move(record));
}

void JXOutboxDrops::readAll(JXOutboxSegment& segment) {
  for (Record& record : records_) {
    if (record.segment == &segment) read(record);
  }
}

std::vector<JXOutboxDrop> JXOutboxDrops::take(std::size_t limit) {
  std::vector<JXOutboxDrop> taken;
  taken.reserve(std::min(limit, records_.size()));
  while (taken.size() < limit && !records_.empty()) {
    read(records_.front());
    taken.push_back(std::move(records_.front().drop));
    records_.pop_front();
  }
  return taken;
}

void JXOutboxDrops::read(Record& record) {
  std::string payload;
  if (record.segment != nullptr &&
      record.segment->read(record.offset, record.bytes, payload) == 0) {
    record.drop.eventId = eventIdOf(decodeRecord(payload).body);
  }
  record.segment = nullptr;
}

}  // namespace jx
