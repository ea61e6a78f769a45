// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_delivery.h"

#include <chrono>
#include <cstring>
#include <string>

#include "jx/c/internal/JXCall.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/facade/JXStoredData.h"

namespace {

using jx::JXDeliveryOutcome;
using jx::JXDropReason;
using jx::c::Result;

static_assert(static_cast<int>(JXDeliveryOutcome::Delivered) == JX_OUTCOME_DELIVERED);
static_assert(static_cast<int>(JXDeliveryOutcome::Rejected) == JX_OUTCOME_REJECTED);
static_assert(static_cast<int>(JXDeliveryOutcome::Dropped) == JX_OUTCOME_DROPPED);
static_assert(static_cast<int>(JXDropReason::None) == JX_DROP_NONE);
static_assert(static_cast<int>(JXDropReason::TooMany) == JX_DROP_TOO_MANY);
static_assert(static_cast<int>(JXDropReason::TooLarge) == JX_DROP_TOO_LARGE);
static_assert(static_cast<int>(JXDropReason::TooOld) == JX_DROP_TOO_OLD);
static_assert(static_cast<int>(JXDropReason::NoStorage) == JX_DROP_NO_STORAGE);
static_assert(static_cast<int>(JXDropReason::Unreadable) == JX_DROP_UNREADABLE);
static_assert(static_cast<int>(JXDropReason::Purged) == JX_DROP_PURGED);
static_assert(static_cast<int>(JXDropReason::OutOfMemory) == JX_DROP_OUT_OF_MEMORY);

jx_counters inC(const jx::JXDeliveryCounters& counters) {
  const jx::JXOutboxCounters& outbox = counters.outbox;
  jx_counters c = {};
  c.added = outbox.added;
  c.delivered = outbox.delivered;
  c.rejected = outbox.rejected;
  c.dropped_too_many = outbox.droppedTooMany;
  c.dropped_too_large = outbox.droppedTooLarge;
  c.dropped_too_old = outbox.droppedTooOld;
  c.dropped_no_storage = outbox.droppedNoStorage;
  c.dropped_unreadable = outbox.droppedUnreadable;
  c.purged = outbox.purged;
  c.storage_errors = outbox.storageErrors;
  c.damaged = outbox.damaged;
  c.queued = outbox.queued;
  c.queued_bytes = outbox.queuedBytes;
  c.in_memory = outbox.inMemory;
  c.attempts = counters.attempts;
  c.failures = counters.failures;
  c.paused = counters.paused;
  c.dropped_out_of_memory = outbox.droppedOutOfMemory;
  c.quarantined_deleted = outbox.quarantinedDeleted;
  return c;
}

}  // namespace

jx_status jx_counters_get(jx_counters* counters, size_t struct_size) {
  return jx::c::call(__func__, [&]() -> Result {
    if (counters == nullptr) return JX_ERROR_NULL_ARGUMENT;
    if (!jx::c::isKnownSize<jx_counters>(struct_size)) return JX_ERROR_STRUCT_SIZE;
    jx_counters filled = inC(jx::JXNetworkManager::sharedInstance().counters());
    filled.struct_size = struct_size;
    std::memcpy(counters, &filled, struct_size);
    return JX_OK;
  });
}

jx_status jx_flush(int64_t deadline_ms) {
  return jx::c::call(__func__, [&]() -> Result {
    const bool isEmpty =
        jx::JXNetworkManager::sharedInstance().flush(std::chrono::milliseconds(deadline_ms));
    return isEmpty ? JX_OK : JX_ERROR_TIMED_OUT;
  });
}

jx_status jx_erase_all(char* left, size_t capacity, size_t* length) {
  return jx::c::call(__func__, [&]() -> Result {
    if (left == nullptr && capacity != 0) return JX_ERROR_NULL_ARGUMENT;
    const jx::JXErasure erasure = jx::JXStoredData::eraseAll();
    std::string lines;
    for (const std::string& line : erasure.left)
      lines += line + "\n";
    // A buffer that is too small does not hide that data is left.
    jx::c::copyOut(lines, left, capacity, length);
    return erasure.isComplete ? JX_OK : JX_ERROR_NOT_ERASED;
  });
}

jx_status jx_purge(void) {
  return jx::c::call(__func__, [] {
    jx::JXNetworkManager::sharedInstance().purge();
    return Result(JX_OK);
  });
}
