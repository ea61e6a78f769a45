// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_CONFIGURATION_H
#define JX_C_JX_CONFIGURATION_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include "jx/c/jx_delivery.h"
#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Receives log lines. Called on the thread that logs, the transfer thread included, one call at a
/// time; `message` is valid during the call. It must not block, and must not call the library.
typedef void (*jx_log_sink)(void* context, int32_t level, const char* message);

/// Milliseconds since the Unix epoch. Called on any thread; may jump in either direction.
typedef int64_t (*jx_clock)(void* context);

/// What a host may choose, once, before it makes its first `jx_server_side`. Begin with
/// `jx_configuration_init`, which fills in the defaults; every default suits a TV application. A
/// null text is absent. Contexts are handed to their callbacks and must last until the process
/// ends.
typedef struct jx_configuration {
  size_t struct_size;  ///< filled in by `jx_configuration_init`
  /// Folder of the queue and of the persisted variables; made when it is missing. Null: the
  /// system's folder for the application's state.
  const char* storage_folder;
  /// Where events go: "collect.example.com", with an optional port. "https://" may stand before it,
  /// "http://" only before a loopback host. Null: the host that the library was built with.
  const char* collection_host;
  /// File of PEM certificates to trust instead of the system's.
  const char* ca_file;
  /// Public keys that the collection host may show: each the SHA-256 of the key in Base64. None:
  /// any key of a trusted certificate.
  const char* const* pinned_public_keys;
  size_t pinned_public_key_count;  ///< how many `pinned_public_keys` there are
  /// "http://proxy.example:3128"; "" for none; null: what the environment says.
  const char* proxy;
  /// Null: standard error.
  jx_log_sink log_sink;
  void* log_sink_context;  ///< handed to `log_sink`
  int32_t log_level;       ///< highest level that is logged; 0 logs nothing, 6 everything
  // Bounds of the queue; the oldest requests go first. 0 is a bound, not the default.
  uint64_t max_requests;      ///< how many requests wait at most
  uint64_t max_bytes;         ///< sum of their bodies and URLs
  int64_t max_age_ms;         ///< an older request is dropped
  uint64_t max_dead_letters;  ///< how many refused requests are kept aside
  uint64_t max_in_memory;     ///< requests held while the disk takes none
  // When a request is tried again, and how long one try may take.
  int64_t initial_backoff_ms;  ///< doubles with each failed try
  int64_t max_backoff_ms;      ///< that the library takes by itself
  int64_t max_retry_after_ms;  ///< that a receiver may ask for
  int64_t connect_timeout_ms;  ///< how long connecting may take
  int64_t request_timeout_ms;  ///< name resolution to the end of the answer
  int64_t sync_delay_ms;       ///< a write is durable after at most this
  int64_t user_agent_wait_ms;  ///< see `jx_wait_for_user_agent`
  int64_t start_hold_ms;       ///< what an earlier process left waits for this at the start
  /// Told what became of each request; may be null.
  jx_delivery_callback on_delivery;
  void* on_delivery_context;  ///< handed to `on_delivery`
  /// True: requests are neither stored nor sent, and observers still see them.
  bool dry_run;
  // What the application states about itself, where the system does not know it.
  const char* bundle_identifier;     ///< "com.example.tv"
  const char* bundle_name;           ///< the name that a viewer sees
  const char* bundle_version;        ///< build number
  const char* bundle_short_version;  ///< version that a viewer sees
  /// Size of the main screen in points; 0 by 0 leaves it to the system.
  double screen_width;
  double screen_height;  ///< points
  /// Text for the device block's user agent, where the system has none.
  const char* user_agent;
  /// The time of day; null: the system's.
  jx_clock clock;
  void* clock_context;  ///< handed to `clock`
} jx_configuration;

/// Fills in the defaults. `struct_size` is `sizeof(jx_configuration)`, so that a program keeps
/// working with a later library that has more fields.
JX_API jx_status jx_configuration_init(jx_configuration* configuration, size_t struct_size);
/// Puts the configuration in force; everything that it points to is copied. JX_ERROR_TOO_LATE once
/// the library has started. What only C++ can configure (the platform) stays as it was.
JX_API jx_status jx_configure(const jx_configuration* configuration);
/// Changes the highest level that is logged; allowed at any time.
JX_API void jx_set_log_level(int32_t level);

#ifdef __cplusplus
}
#endif

#endif
