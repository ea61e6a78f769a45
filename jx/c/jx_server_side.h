// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_SERVER_SIDE_H
#define JX_C_JX_SERVER_SIDE_H

#include <stddef.h>
#include <stdint.h>

#include "jx/c/jx_object.h"
#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The main SDK object. Create one and keep it while the application runs; it queues events and
/// delivers them. May be used on any thread.
typedef struct jx_server_side jx_server_side;

/// Initial state of the library, and whether it accepts stop requests.
typedef enum jx_behaviour {
  JX_BEHAVIOUR_DEFAULT = 0,             ///< waits for consent if a consent module is registered
  JX_BEHAVIOUR_ALWAYS_ENABLED = 1,      ///< starts enabled; `jx_disable` is ignored
  JX_BEHAVIOUR_DISABLED_BY_DEFAULT = 2  ///< starts disabled until `jx_enable`
} jx_behaviour;

/// Whether events are currently sent.
typedef enum jx_state {
  JX_STATE_WAITING_FOR_CONSENT = 0,  ///< sent with a marker in place of the user block
  JX_STATE_ENABLED = 1,
  JX_STATE_DISABLED = 2  ///< `jx_execute` does nothing
} jx_state;

/// Functions that mirror events to a Firebase Analytics instance. A null function is not called.
/// Called on the thread that creates the `jx_server_side` or executes an event. Strings are valid
/// during the call.
typedef struct jx_firebase {
  size_t struct_size;  ///< `sizeof(jx_firebase)`
  void* context;       ///< passed to each function
  /// Sets a parameter that is added to every subsequent event.
  void (*set_default_parameter)(void* context, const char* name, const char* value);
  /// Logs one event. `event_name` is null for an event without a name. `parameters_json` is a JSON
  /// object, written for this call. Nested objects are serialised to strings and "items" is a list
  /// of flat objects; every other list is passed unchanged and may therefore contain objects.
  void (*log_event)(void* context, const char* event_name, const char* parameters_json);
  /// Called once, when the context is no longer used; may be null.
  void (*release)(void* context);
} jx_firebase;

/// Creates an object in `*server_side`. The first call starts the library. `site_id` is the site ID
/// of the application. `source_key` is its source key, percent-encoded in the request.
/// `behaviour` is a `jx_behaviour`; any other value means JX_BEHAVIOUR_DEFAULT. `firebase` is
/// copied and may be null. On an error `*server_side` is null, and `release` is not called.
JX_API jx_status jx_server_side_create(int32_t site_id, const char* source_key, uint32_t behaviour,
                                       const jx_firebase* firebase, jx_server_side** server_side);
/// Frees the object. Queued events stay queued and are sent. Null does nothing.
JX_API jx_status jx_server_side_free(jx_server_side* server_side);

/// Queues an event for delivery. The event is stored before this returns and survives a killed
/// process. Adds the permanent data to the event object. Returns JX_OK without doing anything while
/// disabled.
JX_API jx_status jx_execute(jx_server_side* server_side, jx_object* event);

/// Adds a string to every subsequent event, replacing any value with the same key. A null value
/// removes the key.
JX_API jx_status jx_set_permanent(jx_server_side* server_side, const char* key, const char* value);
/// Adds any JSON value to every subsequent event, as `jx_set_permanent` does.
JX_API jx_status jx_set_permanent_json(jx_server_side* server_side, const char* key,
                                       const char* json);
/// Writes the value of `key` as JSON; a string is quoted. See `jx_object_json` for the buffer.
/// Returns JX_ERROR_NOT_SET if there is no such key.
JX_API jx_status jx_get_permanent_json(const jx_server_side* server_side, const char* key,
                                       char* buffer, size_t capacity, size_t* length);
/// Removes the value of `key`. Event objects that were already executed keep it. Returns
/// JX_ERROR_NOT_SET if there is no such key.
JX_API jx_status jx_remove_permanent(jx_server_side* server_side, const char* key);

/// Grants consent: subsequent events are sent, and delivery of queued events resumes.
JX_API jx_status jx_enable(jx_server_side* server_side);
/// Withdraws consent: subsequent events are ignored, and delivery of queued events is paused.
JX_API jx_status jx_disable(jx_server_side* server_side);
/// Writes the current state to `*state`.
JX_API jx_status jx_get_state(const jx_server_side* server_side, jx_state* state);
/// Pauses delivery until the user agent is known, for at most `user_agent_wait_ms`.
JX_API jx_status jx_wait_for_user_agent(jx_server_side* server_side);
/// Allows delivery while the application is in the background.
JX_API jx_status jx_enable_running_in_background(jx_server_side* server_side);
/// Reads the vendor identifier, the tracking permission and the advertising identifier, and adds
/// them to the device block. Call it after the viewer has responded to the tracking prompt.
JX_API jx_status jx_add_advertising_ids(jx_server_side* server_side);
/// Stores whether tracking is allowed. Part of `jx_add_advertising_ids`.
JX_API jx_status jx_set_advertising_tracking_enabled(jx_server_side* server_side);
/// Stores the advertising identifier that the stored permission allows. Part of
/// `jx_add_advertising_ids`.
JX_API jx_status jx_set_idfa(jx_server_side* server_side);

// Application state, for systems that do not notify the library. Call both functions on the thread
// of the user interface.

/// Reports that the application is in the background: delivery is paused unless running in the
/// background is enabled. Queued events stay queued.
JX_API jx_status jx_application_did_enter_background(void);
/// Reports that the application returns to the foreground: delivery resumes. A long absence starts
/// a new session.
JX_API jx_status jx_application_will_enter_foreground(void);

// The viewer and the consent module.

/// Registers an optional module of this process. Registering "JXMobileConsent" makes the library
/// wait for consent. Call it before the first `jx_server_side` is created. A null or empty name is
/// ignored.
JX_API jx_status jx_register_module(const char* name);
/// Removes a registered module.
JX_API jx_status jx_unregister_module(const char* name);
/// Sets the anonymous ID of the viewer's installation for this and all later launches. A null or
/// empty ID is ignored.
JX_API jx_status jx_set_anonymous_id(const char* id);
/// Writes the anonymous ID. See `jx_object_json` for the buffer.
JX_API jx_status jx_get_anonymous_id(char* buffer, size_t capacity, size_t* length);
/// Sets the consent ID; null removes it. The consent module calls this at each start.
JX_API jx_status jx_set_consent_id(const char* id);
/// Uses the unique ID of the installation as the anonymous ID.
JX_API jx_status jx_use_legacy_unique_id_for_anonymous_id(void);
/// Uses the unique ID of the installation as the consent ID.
JX_API jx_status jx_use_legacy_unique_id_for_consent_id(void);

// The blocks that surround every event.

/// Blocks that an application may extend.
typedef enum jx_block {
  JX_BLOCK_USER = 0,
  JX_BLOCK_DEVICE = 1,
  JX_BLOCK_APP = 2,
  JX_BLOCK_LIFECYCLE = 3,
  JX_BLOCK_NETWORK = 4
} jx_block;

/// Adds a string to a `jx_block` of every subsequent event. Must not be called while another thread
/// executes an event. A null value adds nothing.
JX_API jx_status jx_block_add(uint32_t block, const char* key, const char* value);
/// Adds any JSON value to a `jx_block`, as `jx_block_add` does.
JX_API jx_status jx_block_add_json(uint32_t block, const char* key, const char* json);

/// Writes the value of a predefined variable. jx/c/events/jx_names.h lists the names. Returns
/// JX_ERROR_NOT_SET if it has no value. See `jx_object_json` for the buffer.
JX_API jx_status jx_get_variable(const char* name, char* buffer, size_t capacity, size_t* length);
/// Sets a predefined variable, or a variable of the application; null removes it.
JX_API jx_status jx_set_variable(const char* name, const char* value);
/// Writes the value of a core variable: the advertising identifiers and the consent version.
/// Returns JX_ERROR_NOT_SET if it has no value. See `jx_object_json` for the buffer.
JX_API jx_status jx_get_core_variable(const char* name, char* buffer, size_t capacity,
                                      size_t* length);
/// Sets a core variable; null removes it.
JX_API jx_status jx_set_core_variable(const char* name, const char* value);

#ifdef __cplusplus
}
#endif

#endif
