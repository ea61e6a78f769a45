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

/// Outcome of a request.
typedef enum jx_outcome {
  JX_OUTCOME_DELIVERED = 0,
  JX_OUTCOME_REJECTED = 1,  ///< permanently rejected by the server; moved to the dead letters
  JX_OUTCOME_DROPPED = 2
} jx_outcome;

/// Reason why a request left the queue without a response.
typedef enum jx_drop_reason {
  JX_DROP_NONE = 0,          ///< not dropped
  JX_DROP_TOO_MANY = 1,      ///< the oldest request exceeded `max_requests`
  JX_DROP_TOO_LARGE = 2,     ///< the oldest request, or a single one, exceeded `max_bytes`
  JX_DROP_TOO_OLD = 3,       ///< the request exceeded `max_age_ms`
  JX_DROP_NO_STORAGE = 4,    ///< writes failed, and `max_in_memory` was reached
  JX_DROP_UNREADABLE = 5,    ///< its stored data is damaged
  JX_DROP_PURGED = 6,        ///< removed by a purge
  JX_DROP_OUT_OF_MEMORY = 7  ///< memory was exhausted before the event was stored
} jx_drop_reason;

/// Reports the outcome of one request.
typedef struct jx_delivery {
  jx_outcome outcome;          ///< delivered, rejected or dropped
  const char* event_id;        ///< null if the body contains no event ID
  int32_t status;              ///< HTTP status; 0 if there was no response
  const char* reason;          ///< message for a log; null if delivered
  jx_drop_reason drop_reason;  ///< reason if dropped, else JX_DROP_NONE
} jx_delivery;

/// Receives the outcome of a request. Called on the transfer thread, once per request, after the
/// request has left the queue. The delivery and its strings are valid during the call. May call the
/// functions of this header; `jx_flush` then returns without waiting.
typedef void (*jx_delivery_callback)(void* context, const jx_delivery* delivery);

/// Counts of requests since the start of this process, and the current state of the queue.
typedef struct jx_counters {
  size_t struct_size;           ///< set by `jx_counters_get`
  uint64_t added;               ///< accepted by the queue
  uint64_t delivered;           ///< acknowledged with a 2xx response
  uint64_t rejected;            ///< permanently rejected by the server
  uint64_t dropped_too_many;    ///< dropped because of `max_requests`
  uint64_t dropped_too_large;   ///< dropped because of `max_bytes`
  uint64_t dropped_too_old;     ///< dropped because of `max_age_ms`
  uint64_t dropped_no_storage;  ///< dropped because writes failed
  uint64_t dropped_unreadable;  ///< dropped because their stored data was damaged
  uint64_t purged;              ///< removed by `jx_purge`
  uint64_t storage_errors;      ///< failed writes, reads and syncs
  uint64_t damaged;             ///< files of which a part was quarantined
  uint64_t queued;              ///< currently queued, including requests in flight
  uint64_t queued_bytes;        ///< total size of their bodies and URLs
  uint64_t in_memory;           ///< queued requests that are not on disk
  uint64_t attempts;            ///< attempts that were started
  uint64_t failures;            ///< attempts that ended without a final response
  bool paused;  ///< true while delivery is paused: consent, background or user agent
  uint64_t dropped_out_of_memory;  ///< not queued because memory was exhausted
  uint64_t quarantined_deleted;  ///< quarantined files deleted because of their number, size or age
} jx_counters;

/// Fills in the counters. `struct_size` must be `sizeof(jx_counters)`. Returns JX_ERROR_STRUCT_SIZE
/// if this library does not support the size.
JX_API jx_status jx_counters_get(jx_counters* counters, size_t struct_size);
/// Waits until the queue is empty, for at most `deadline_ms`. Blocks the calling thread. Returns
/// JX_OK, or JX_ERROR_TIMED_OUT. Remaining requests are sent later, or by the next process.
JX_API jx_status jx_flush(int64_t deadline_ms);
/// Removes all queued requests and all dead letters.
JX_API jx_status jx_purge(void);
/// Erases everything that the library has stored on the device and in this process: queued events,
/// dead letters, identifiers, counts and times of visits and sessions. The next event has new
/// identifiers. Values that the application sets stay: permanent data, consent ID, configuration,
/// and whether events are sent. May be called before the library starts: it then erases the
/// configured folder. Blocks on disk I/O. See JXStoredData in C++ for other processes and threads.
///
/// Returns JX_ERROR_NOT_ERASED if something is left; everything else was erased. `left` then
/// receives one line for each file that could not be deleted, its path and the reason, or "" if the
/// buffer is too small; `*length`, which may be null, receives the length without the NUL. `left`
/// may be null with capacity 0.
JX_API jx_status jx_erase_all(char* left, size_t capacity, size_t* length);

#ifdef __cplusplus
}
#endif

#endif
