// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXEVENT_H
#define JX_C_EVENTS_JXEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of all events that an application passes to `ServerSide::execute`. The application owns its
/// events and fills them on one thread. An event must not be changed while it is being executed. An
/// amount that is NaN is not written and counts as not set in `verifyEvent`.
#define JXEvent_class "JXEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXEvent_create(jx_object** event) {
  return jx_event_create("JXEvent", event);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXEvent_name "JXEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                        size_t* length) {
  return jx_object_get_string(event, JXEvent_name, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXEvent_pageName "JXEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXEvent_getPageName(const jx_object* event, char* buffer, size_t capacity,
                                            size_t* length) {
  return jx_object_get_string(event, JXEvent_pageName, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXEvent_pageType "JXEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXEvent_getPageType(const jx_object* event, char* buffer, size_t capacity,
                                            size_t* length) {
  return jx_object_get_string(event, JXEvent_pageType, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
