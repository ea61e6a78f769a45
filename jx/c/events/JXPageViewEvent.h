// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXPAGEVIEWEVENT_H
#define JX_C_EVENTS_JXPAGEVIEWEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A page or screen was shown. `pageType` is its type, `pageName` its name. Includes the fields of
/// JXEvent.
#define JXPageViewEvent_class "JXPageViewEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXPageViewEvent_create(jx_object** event) {
  return jx_event_create("JXPageViewEvent", event);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXPageViewEvent_pageName "JXPageViewEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXPageViewEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPageViewEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXPageViewEvent_getPageName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPageViewEvent_pageName, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXPageViewEvent_pageType "JXPageViewEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXPageViewEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPageViewEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXPageViewEvent_getPageType(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPageViewEvent_pageType, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXPageViewEvent_name "JXPageViewEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXPageViewEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPageViewEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXPageViewEvent_getName(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPageViewEvent_name, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
