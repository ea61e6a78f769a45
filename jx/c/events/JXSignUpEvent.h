// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXSIGNUPEVENT_H
#define JX_C_EVENTS_JXSIGNUPEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer created an account. Always valid. Includes the fields of JXEvent.
#define JXSignUpEvent_class "JXSignUpEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXSignUpEvent_create(jx_object** event) {
  return jx_event_create("JXSignUpEvent", event);
}

/// The sign-up method, a free-form string such as "remote" or "phone". JSON key "method".
#define JXSignUpEvent_method "JXSignUpEvent.method"
/// Sets `method`; null removes the value.
static inline jx_status JXSignUpEvent_setMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSignUpEvent_method, value);
}
/// Writes `method` to `buffer`; see `jx_object_json`.
static inline jx_status JXSignUpEvent_getMethod(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSignUpEvent_method, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXSignUpEvent_name "JXSignUpEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXSignUpEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSignUpEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXSignUpEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXSignUpEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXSignUpEvent_pageType "JXSignUpEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXSignUpEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSignUpEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXSignUpEvent_getPageType(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSignUpEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXSignUpEvent_pageName "JXSignUpEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXSignUpEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSignUpEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXSignUpEvent_getPageName(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSignUpEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
