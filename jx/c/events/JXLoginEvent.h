// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXLOGINEVENT_H
#define JX_C_EVENTS_JXLOGINEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer logged in. Always valid. Includes the fields of JXEvent.
#define JXLoginEvent_class "JXLoginEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXLoginEvent_create(jx_object** event) {
  return jx_event_create("JXLoginEvent", event);
}

/// The login method, a free-form string such as "remote" or "phone". JSON key "method".
#define JXLoginEvent_method "JXLoginEvent.method"
/// Sets `method`; null removes the value.
static inline jx_status JXLoginEvent_setMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXLoginEvent_method, value);
}
/// Writes `method` to `buffer`; see `jx_object_json`.
static inline jx_status JXLoginEvent_getMethod(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXLoginEvent_method, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXLoginEvent_name "JXLoginEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXLoginEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXLoginEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXLoginEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                             size_t* length) {
  return jx_object_get_string(event, JXLoginEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXLoginEvent_pageType "JXLoginEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXLoginEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXLoginEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXLoginEvent_getPageType(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXLoginEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXLoginEvent_pageName "JXLoginEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXLoginEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXLoginEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXLoginEvent_getPageName(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXLoginEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
