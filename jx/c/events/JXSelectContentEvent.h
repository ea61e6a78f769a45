// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXSELECTCONTENTEVENT_H
#define JX_C_EVENTS_JXSELECTCONTENTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer selected a piece of content. Always valid. Includes the fields of JXEvent.
#define JXSelectContentEvent_class "JXSelectContentEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXSelectContentEvent_create(jx_object** event) {
  return jx_event_create("JXSelectContentEvent", event);
}

/// The type of the content, a free-form string. JSON key "content_type".
#define JXSelectContentEvent_contentType "JXSelectContentEvent.contentType"
/// Sets `contentType`; null removes the value.
static inline jx_status JXSelectContentEvent_setContentType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_contentType, value);
}
/// Writes `contentType` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectContentEvent_getContentType(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectContentEvent_contentType, buffer, capacity, length);
}

/// The identifier of the selected content. JSON key "item_id".
#define JXSelectContentEvent_itemID "JXSelectContentEvent.itemID"
/// Sets `itemID`; null removes the value.
static inline jx_status JXSelectContentEvent_setItemID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_itemID, value);
}
/// Writes `itemID` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectContentEvent_getItemID(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectContentEvent_itemID, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXSelectContentEvent_name "JXSelectContentEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXSelectContentEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectContentEvent_getName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectContentEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXSelectContentEvent_pageType "JXSelectContentEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXSelectContentEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectContentEvent_getPageType(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectContentEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXSelectContentEvent_pageName "JXSelectContentEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXSelectContentEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectContentEvent_getPageName(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectContentEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
