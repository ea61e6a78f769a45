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

/// Receives log messages. Called on the thread that logs, including the transfer thread; several
/// threads may call it at once. `message` is valid during the call. May call the library; messages
/// that it causes are dropped. Must not block.
typedef void (*jx_log_sink)(void* context, int32_t level, const char* message);

/// Returns the time in milliseconds since the Unix epoch. Called on any thread; the time may jump
/// in either direction.
typedef int64_t (*jx_clock)(void* context);

/// Configuration of the library. Applied once, before the first `jx_server_side` is created.
/// Initialise it with `jx_configuration_init`; the defaults suit a TV application. A null string is
/// not set. Each context is passed to its callback and must remain valid until the process ends.
typedef struct jx_configuration {
  size_t struct_size;  ///< set by `jx_configuration_init`
  /// Folder of the queue and of the persisted variables; created if it does not exist. Null: the
  /// system's folder for application state.
  const char* storage_folder;
  /// True: nothing is stored, and no identifier created, until the viewer consents.
  bool stores_only_with_consent;
  /// Server that receives events: "collect.example.com", optionally followed by a port and
  /// preceded by "https://". "http://" is allowed only for loopback hosts. Null: the host that the
  /// library was built with. With an invalid host, events are queued and not sent.
  const char* collection_host;
  /// PEM file of certificates to trust instead of the system's.
  const char* ca_file;
  /// Public keys that the collection host may present: each the SHA-256 of the key in Base64.
  /// Empty: any key of a trusted certificate.
  const char* const* pinned_public_keys;
  size_t pinned_public_key_count;  ///< number of `pinned_public_keys`
  /// "http://proxy.example:3128"; "" for no proxy; null: use the environment variables.
  const char* proxy;
  /// Null: standard error.
  jx_log_sink log_sink;
  void* log_sink_context;  ///< passed to `log_sink`
  int32_t log_level;       ///< highest level that is logged; 0 logs nothing, 6 logs everything
  // Limits of the queue; the oldest requests are dropped first. 0 is a limit, not the default.
  uint64_t max_requests;      ///< maximum number of queued requests
  uint64_t max_bytes;         ///< maximum total size of their bodies and URLs
  int64_t max_age_ms;         ///< older requests and dead letters are deleted
  uint64_t max_dead_letters;  ///< maximum number of rejected requests that are kept
  uint64_t max_in_memory;     ///< maximum number of requests kept in memory while writes fail
  // Retries and timeouts.
  int64_t initial_backoff_ms;  ///< first retry delay; doubles with each failed attempt
  int64_t max_backoff_ms;      ///< maximum retry delay, unless the server requests a longer one
  int64_t max_retry_after_ms;  ///< maximum retry delay that the server may request
  int64_t connect_timeout_ms;  ///< maximum time to connect
  int64_t request_timeout_ms;  ///< maximum time from name resolution to the end of the response
  int64_t sync_delay_ms;       ///< maximum time until a write is durable
  int64_t user_agent_wait_ms;  ///< see `jx_wait_for_user_agent`
  /// Receives the outcome of each request; may be null.
  jx_delivery_callback on_delivery;
  void* on_delivery_context;  ///< passed to `on_delivery`
  /// True: requests are neither stored nor sent; observers still receive them.
  bool dry_run;
  // Information about the application, for systems that do not provide it.
  const char* bundle_identifier;     ///< "com.example.tv"
  const char* bundle_name;           ///< name that is shown to the viewer
  const char* bundle_version;        ///< build number
  const char* bundle_short_version;  ///< version that is shown to the viewer
  /// Width of the main screen in points. 0 by 0: use the size that the system reports.
  double screen_width;
  double screen_height;  ///< height in points
  /// User agent of the device block, if the system does not provide one.
  const char* user_agent;
  /// Returns the time of day; null: the system clock.
  jx_clock clock;
  void* clock_context;  ///< passed to `clock`
  /// True: queued events of other hosts are sent to `collection_host` too.
  bool sends_queue_to_current_host;
} jx_configuration;

/// Sets all fields to their defaults. `struct_size` must be `sizeof(jx_configuration)`; it lets a
/// program run with a later library version that has more fields. Returns JX_ERROR_STRUCT_SIZE if
/// this library does not support the size.
JX_API jx_status jx_configuration_init(jx_configuration* configuration, size_t struct_size);
/// Applies the configuration and copies everything that it points to, except the contexts. Returns
/// JX_ERROR_TOO_LATE once the library has started. Settings that exist only in C++ (the platform)
/// are not changed.
JX_API jx_status jx_configure(const jx_configuration* configuration);
/// Sets the highest level that is logged. May be called at any time.
JX_API void jx_set_log_level(int32_t level);

#ifdef __cplusplus
}
#endif

#endif
