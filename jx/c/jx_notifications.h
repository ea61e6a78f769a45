// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_NOTIFICATIONS_H
#define JX_C_JX_NOTIFICATIONS_H

#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One who hears notifications of one name.
typedef struct jx_observer jx_observer;

/// Called on the thread that posts. `user_info_json` is an object, null when nothing goes with the
/// notification; both texts are valid during the call. May call every operation, and free its own
/// observer.
typedef void (*jx_notification_handler)(void* context, const char* name,
                                        const char* user_info_json);

/// Calls `handler` with each notification of that name, wherever the library or the host posts it;
/// the names stand in jx/c/events/jx_names.h. A request that is handed to the core is one:
/// JXNotification_HTTPRequest.
JX_API jx_status jx_observer_create(const char* name, jx_notification_handler handler,
                                    void* context, jx_observer** observer);
/// Ends the calls. When this returns no call is under way on another thread, so the context may go.
/// Null does nothing.
JX_API jx_status jx_observer_free(jx_observer* observer);
/// Posts a notification on the default centre; `user_info_json` is a JSON object or null. Returns
/// when every observer was called.
JX_API jx_status jx_post_notification(const char* name, const char* user_info_json);

#ifdef __cplusplus
}
#endif

#endif
