// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// The operations of JXOutboxQueue for rejected requests.
#include <cstddef>

#include "jx/core/storage/JXOutboxQueue.h"

namespace jx {
namespace {

using State = JXOutboxEntry::State;

}  // namespace

bool JXOutboxQueue::reject(std::uint64_t id, int status) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state == State::Rejected) return false;
  try {
    rejected_.push_back(id);
  } catch (...) {
    requeue(id);
    return false;
  }
  ++counters_.rejected;
  entry->state = State::Rejected;
  entry->status = static_cast<std::int16_t>(status);
  rejectedBytes_ += entry->bytes;
  return true;
}

std::optional<JXOutboxQueue::Rejected> JXOutboxQueue::nextRejected() {
  while (!rejected_.empty()) {
    JXOutboxEntry& entry = *index_.find(rejected_.front());
    Rejected rejected;
    rejected.status = entry.status;
    const int error = read(entry, rejected.request);
    if (error == 0) return rejected;
    report_.failed("read a request", error);
    release(entry);
    segments_.finishModified();
  }
  return std::nullopt;
}

void JXOutboxQueue::acknowledgeRejected(std::uint64_t id) {
  JXOutboxEntry* const entry = index_.find(id);
  if (entry == nullptr || entry->state != State::Rejected) return;
  release(*entry);
  segments_.finishModified();
}

// Each of the requests in flight may be rejected, which must not need memory then: its response
// would be lost.
void JXOutboxQueue::reserveRejections() {
  constexpr std::size_t kMaxInFlight = 16;
  const std::size_t wanted = rejected_.size() + kMaxInFlight;
  if (rejected_.capacity() < wanted) rejected_.reserve(2 * wanted);
}

}  // namespace jx
