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
// Recorded while memory is exhausted.
constexpr std::size_t kMaxReserved = 64;

}  // namespace

void JXOutboxDrops::startRecording() {
  reserved_.reserve(kMaxReserved);
  isRecording_ = true;
}

JXOutboxDrops::Record JXOutboxDrops::recordOf(JXDropReason reason, const JXOutboxEntry* entry) {
  Record record;
  record.drop.reason = reason;
  if (entry != nullptr && entry->segment != nullptr) {
    record.segment = entry->segment;
    record.offset = entry->offset;
    record.bytes = entry->bytes;
  }
  return record;
}

void JXOutboxDrops::record(JXDropReason reason, std::string_view body,
                           const JXOutboxEntry* entry) noexcept {
  if (!isRecording_ || records_.size() >= kMaxDrops) return;
  try {
    Record record = recordOf(reason, entry);
    if (record.segment == nullptr) record.drop.eventId = eventIdOf(body);
    records_.push_back(std::move(record));
  } catch (...) {
    recordReserved(reason, body, entry);
  }
}

void JXOutboxDrops::recordReserved(JXDropReason reason, std::string_view body,
                                   const JXOutboxEntry* entry) noexcept {
  if (reserved_.size() == reserved_.capacity()) return;
  Reserved reserved;
  reserved.record = recordOf(reason, entry);
  if (reserved.record.segment == nullptr) {
    const std::string_view id = plainEventIdOf(body);
    reserved.length = id.size() <= reserved.eventId.size() ? id.size() : 0;
    std::copy_n(id.begin(), reserved.length, reserved.eventId.begin());
  }
  reserved_.push_back(reserved);
}

void JXOutboxDrops::readAll(JXOutboxSegment& segment) {
  for (Record& record : records_) {
    if (record.segment == &segment) read(record);
  }
  for (Reserved& reserved : reserved_) {
    if (reserved.record.segment == &segment) read(reserved.record);
  }
}

std::vector<JXOutboxDrop> JXOutboxDrops::take(std::size_t limit) noexcept {
  std::vector<JXOutboxDrop> taken;
  try {
    taken.reserve(std::min(limit, records_.size() + reserved_.size()));
    while (taken.size() < limit && !records_.empty()) {
      read(records_.front());
      taken.push_back(std::move(records_.front().drop));
      records_.pop_front();
    }
    while (taken.size() < limit && !reserved_.empty()) {
      read(reserved_.front());
      taken.push_back(std::move(reserved_.front().record.drop));
      reserved_.erase(reserved_.begin());
    }
  } catch (...) {
    // Out of memory: the others stay recorded for the next call.
  }
  return taken;
}

void JXOutboxDrops::read(Reserved& reserved) {
  read(reserved.record);
  if (reserved.length == 0) return;
  reserved.record.drop.eventId = std::string_view(reserved.eventId.data(), reserved.length);
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
