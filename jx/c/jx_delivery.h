// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_DELIVERY_H
#define JX_C_JX_DELIVERY_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What became of one request.
typedef enum jx_outcome {
  JX_OUTCOME_DELIVERED = 0,
  JX_OUTCOME_REJECTED = 1,  ///< the receiver will never take it; kept among the dead letters
  JX_OUTCOME_DROPPED = 2
} jx_outcome;

/// Why a request left the queue without an answer.
typedef enum jx_drop_reason {
  JX_DROP_NONE = 0,        ///< it was not dropped
  JX_DROP_TOO_MANY = 1,    ///< the oldest, because of `max_requests`
  JX_DROP_TOO_LARGE = 2,   ///< the oldest, or one alone, because of `max_bytes`
  JX_DROP_TOO_OLD = 3,     ///< because of `max_age_ms`
  JX_DROP_NO_STORAGE = 4,  ///< the disk took none, and there was no room in memory
  JX_DROP_UNREADABLE = 5,  ///< its bytes on the disk are damaged
  JX_DROP_PURGED = 6       ///< the queue was emptied by order
} jx_drop_reason;

/// What became of one request.
typedef struct jx_delivery {
  jx_outcome outcome;          ///< what became of it
  const char* event_id;        ///< null when the request's body holds none
  int32_t status;              ///< HTTP status, 0 when there was none
  const char* reason;          ///< in words, for a log; null when delivered
  jx_drop_reason drop_reason;  ///< of a dropped one
} jx_delivery;

/// Called on the transfer thread, once per request, after it has left the queue. The delivery and
/// its texts are valid during the call. May call the operations of this header; `jx_flush` does
/// not wait then.
typedef void (*jx_delivery_callback)(void* context, const jx_delivery* delivery);

/// Counts of requests since the start of this process, and what is held now.
typedef struct jx_counters {
  size_t struct_size;           ///< filled in by `jx_counters_get`
  uint64_t added;               ///< taken by the queue
  uint64_t delivered;           ///< answered with 2xx
  uint64_t rejected;            ///< refused by the receiver for good
  uint64_t dropped_too_many;    ///< because of `max_requests`
  uint64_t dropped_too_large;   ///< because of `max_bytes`
  uint64_t dropped_too_old;     ///< because of `max_age_ms`
  uint64_t dropped_no_storage;  ///< the disk took none
  uint64_t dropped_unreadable;  ///< their bytes on the disk were damaged
  uint64_t purged;              ///< removed by `jx_purge`
  uint64_t storage_errors;      ///< writes, reads and syncs that failed
  uint64_t damaged;             ///< files of which a part was set aside
  uint64_t queued;              ///< held now, in flight ones included
  uint64_t queued_bytes;        ///< sum of their bodies and URLs
  uint64_t in_memory;           ///< of the queued, those that are on no disk yet
  uint64_t attempts;            ///< requests that were started
  uint64_t failures;            ///< tries that ended without a lasting answer
  bool paused;  ///< true while consent, the background or the user agent holds requests
} jx_counters;

/// Fills in the counters. `struct_size` is `sizeof(jx_counters)`.
JX_API jx_status jx_counters_get(jx_counters* counters, size_t struct_size);
/// Waits until the queue is empty, at most `deadline_ms`: JX_OK or JX_ERROR_TIMED_OUT. Blocks the
/// calling thread. What is left goes out later, or by the next process.
JX_API jx_status jx_flush(int64_t deadline_ms);
/// Forgets all that is queued, and the dead letters.
JX_API jx_status jx_purge(void);

#ifdef __cplusplus
}
#endif

#endif
