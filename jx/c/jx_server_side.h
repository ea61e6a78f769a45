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

/// The one object that a host makes and keeps: takes events and has them delivered. It belongs to
/// the thread that made it.
typedef struct jx_server_side jx_server_side;

/// How the library starts, and whether it obeys a stop.
typedef enum jx_behaviour {
  JX_BEHAVIOUR_DEFAULT = 0,             ///< waits for consent when a consent module is registered
  JX_BEHAVIOUR_ALWAYS_ENABLED = 1,      ///< starts enabled; `jx_disable` is ignored
  JX_BEHAVIOUR_DISABLED_BY_DEFAULT = 2  ///< starts disabled until `jx_enable`
} jx_behaviour;

/// Whether events are sent now.
typedef enum jx_state {
  JX_STATE_WAITING_FOR_CONSENT = 0,  ///< sent, with a marker in place of the user block
  JX_STATE_ENABLED = 1,
  JX_STATE_DISABLED = 2  ///< `jx_execute` does nothing
} jx_state;

/// How a host has its events mirrored to a Firebase Analytics instance. A null operation is one
/// that the instance does not have. Called on the thread that makes the `jx_server_side` or
/// executes an event; texts are valid during the call.
typedef struct jx_firebase {
  size_t struct_size;  ///< `sizeof(jx_firebase)`
  void* context;       ///< handed to each operation
  /// A parameter that goes with every later event.
  void (*set_default_parameter)(void* context, const char* name, const char* value);
  /// One event; `parameters_json` is an object that holds no objects but those of its "items".
  void (*log_event)(void* context, const char* event_name, const char* parameters_json);
  /// Called once when nothing uses the context any more; may be null.
  void (*release)(void* context);
} jx_firebase;

/// A new object in `*server_side`; the first one starts the library. `site_id` is the host's site
/// number, `source_key` its source key, which goes into the URL as it is. `behaviour` is a
/// `jx_behaviour`; any other number counts as JX_BEHAVIOUR_DEFAULT. `firebase` is copied and may be
/// null. On an error
/// `*server_side` is null, and `release` was not called.
JX_API jx_status jx_server_side_create(int32_t site_id, const char* source_key, uint32_t behaviour,
                                       const jx_firebase* firebase, jx_server_side** server_side);
/// Ends the object; what is queued stays queued and is sent. Null does nothing.
JX_API jx_status jx_server_side_free(jx_server_side* server_side);

/// Sends an event. When this returns the event is in the queue, which a killed process does not
/// empty. Adds the permanent data to the event itself. Does nothing, successfully, while disabled.
JX_API jx_status jx_execute(jx_server_side* server_side, jx_object* event);

/// Adds a text to every event from now on, in the place of one of the same key. A null value
/// removes it.
JX_API jx_status jx_set_permanent(jx_server_side* server_side, const char* key, const char* value);
/// The same with any JSON value.
JX_API jx_status jx_set_permanent_json(jx_server_side* server_side, const char* key,
                                       const char* json);
/// The datum as JSON text, a text in its quotes. For the buffer see `jx_object_json`.
/// JX_ERROR_NOT_SET when there is none.
JX_API jx_status jx_get_permanent_json(const jx_server_side* server_side, const char* key,
                                       char* buffer, size_t capacity, size_t* length);
/// JX_ERROR_NOT_SET when there is none. Events that were executed keep theirs.
JX_API jx_status jx_remove_permanent(jx_server_side* server_side, const char* key);

/// Gives consent: events are sent from now on, and those held go out.
JX_API jx_status jx_enable(jx_server_side* server_side);
/// Withdraws consent: events are ignored from now on and those queued are held.
JX_API jx_status jx_disable(jx_server_side* server_side);
/// What `jx_execute` does now, in `*state`.
JX_API jx_status jx_get_state(const jx_server_side* server_side, jx_state* state);
/// Holds requests until the user agent is known, at most for `user_agent_wait_ms`.
JX_API jx_status jx_wait_for_user_agent(jx_server_side* server_side);
/// Lets events go out while the application is in the background.
JX_API jx_status jx_enable_running_in_background(jx_server_side* server_side);
/// Reads the vendor identifier, the tracking permission and the advertising identifier, and puts
/// them into the device block. To be called once the viewer has answered the tracking prompt.
JX_API jx_status jx_add_advertising_ids(jx_server_side* server_side);
/// A step of the one above: stores whether tracking is allowed.
JX_API jx_status jx_set_advertising_tracking_enabled(jx_server_side* server_side);
/// A step of it: stores the advertising identifier that the stored permission allows.
JX_API jx_status jx_set_idfa(jx_server_side* server_side);

// The application, where the system does not tell the library itself. Both on one thread, the one
// that the user interface runs on.

/// Nothing is sent from now on, unless running in background was enabled; what is queued stays.
JX_API jx_status jx_application_did_enter_background(void);
/// The viewer is back: what was held goes out, and a long stay away begins a new session.
JX_API jx_status jx_application_will_enter_foreground(void);

// The viewer and the consent module.

/// Tells the library that an optional module is in this process: "JXMobileConsent" makes it wait
/// for consent. Before the first `jx_server_side`. An empty name is ignored.
JX_API jx_status jx_register_module(const char* name);
/// Takes the name back.
JX_API jx_status jx_unregister_module(const char* name);
/// Names the viewer's installation for this and all later launches; a null or empty one is ignored.
JX_API jx_status jx_set_anonymous_id(const char* id);
/// For the buffer see `jx_object_json`.
JX_API jx_status jx_get_anonymous_id(char* buffer, size_t capacity, size_t* length);
/// Stated by the consent module at each start; null takes it away.
JX_API jx_status jx_set_consent_id(const char* id);
/// Makes the installation's unique identifier the anonymous id.
JX_API jx_status jx_use_legacy_unique_id_for_anonymous_id(void);
/// Makes it the consent id.
JX_API jx_status jx_use_legacy_unique_id_for_consent_id(void);

// What goes around every event.

/// The blocks that a host may extend.
typedef enum jx_block {
  JX_BLOCK_USER = 0,
  JX_BLOCK_DEVICE = 1,
  JX_BLOCK_APP = 2,
  JX_BLOCK_LIFECYCLE = 3,
  JX_BLOCK_NETWORK = 4
} jx_block;

/// Adds a text under a key of the host's own to a `jx_block` of every later event; not while
/// another thread executes. A null value adds nothing.
JX_API jx_status jx_block_add(uint32_t block, const char* key, const char* value);
/// The same with any JSON value.
JX_API jx_status jx_block_add_json(uint32_t block, const char* key, const char* json);

/// A predefined variable's text; `name` is one of those in jx/c/events/jx_names.h.
/// JX_ERROR_NOT_SET when it has none. For the buffer see `jx_object_json`.
JX_API jx_status jx_get_variable(const char* name, char* buffer, size_t capacity, size_t* length);
/// Sets a predefined variable, or one of the host's own; null removes it.
JX_API jx_status jx_set_variable(const char* name, const char* value);
/// The same as `jx_get_variable` for the core's variables: the advertising identifiers and the
/// consent version.
JX_API jx_status jx_get_core_variable(const char* name, char* buffer, size_t capacity,
                                      size_t* length);
/// Sets one of the core's variables; null removes it.
JX_API jx_status jx_set_core_variable(const char* name, const char* value);

#ifdef __cplusplus
}
#endif

#endif
