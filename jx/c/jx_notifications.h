// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_NOTIFICATIONS_H
#define JX_C_JX_NOTIFICATIONS_H

#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An observer of the notifications of one name.
typedef struct jx_observer jx_observer;

/// Receives a notification. Called on the thread that posts it. `user_info_json` is a JSON object,
/// or null if the notification carries no data. Both strings are valid during the call. May call
/// every function, and may free its own observer.
typedef void (*jx_notification_handler)(void* context, const char* name,
                                        const char* user_info_json);

/// Creates an observer in `*observer`, which calls `handler` for each notification named `name`,
/// whether the library or the application posts it. jx/c/events/jx_names.h lists the names. Each
/// request that is passed to the core is posted as kJXNotification_HTTPRequest. On an error
/// `*observer` is null.
JX_API jx_status jx_observer_create(const char* name, jx_notification_handler handler,
                                    void* context, jx_observer** observer);
/// Stops the calls and frees the observer. When it returns, no call is in progress on another
/// thread, so the context may be freed. Null does nothing.
JX_API jx_status jx_observer_free(jx_observer* observer);
/// Posts a notification on the default notification centre. `user_info_json` is a JSON object or
/// null. Returns after all observers were called.
JX_API jx_status jx_post_notification(const char* name, const char* user_info_json);

#ifdef __cplusplus
}
#endif

#endif
