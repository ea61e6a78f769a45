// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXCUSTOMEVENT_H
#define JX_C_EVENTS_JXCUSTOMEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An event that the application defines: a name, and any additional parameters. A class of the
/// application can derive from it and override `getJsonObject`. Includes the fields of JXEvent.
#define JXCustomEvent_class "JXCustomEvent"

/// Creates an event in `*event`; free it with `jx_object_free`. `name` may be null.
static inline jx_status JXCustomEvent_create(const char* name, jx_object** event) {
  return jx_custom_event_create(name, event);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXCustomEvent_name "JXCustomEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXCustomEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXCustomEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXCustomEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXCustomEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXCustomEvent_pageType "JXCustomEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXCustomEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXCustomEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXCustomEvent_getPageType(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXCustomEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXCustomEvent_pageName "JXCustomEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXCustomEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXCustomEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXCustomEvent_getPageName(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXCustomEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
