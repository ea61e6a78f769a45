// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXSEARCHEVENT_H
#define JX_C_EVENTS_JXSEARCHEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer performed a search. Includes the fields of JXEvent.
#define JXSearchEvent_class "JXSearchEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXSearchEvent_create(jx_object** event) {
  return jx_event_create("JXSearchEvent", event);
}

/// The search term. JSON key "search_term".
#define JXSearchEvent_searchTerm "JXSearchEvent.searchTerm"
/// Sets `searchTerm`; null removes the value.
static inline jx_status JXSearchEvent_setSearchTerm(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSearchEvent_searchTerm, value);
}
/// Writes `searchTerm` to `buffer`; see `jx_object_json`.
static inline jx_status JXSearchEvent_getSearchTerm(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSearchEvent_searchTerm, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXSearchEvent_name "JXSearchEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXSearchEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSearchEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXSearchEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXSearchEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXSearchEvent_pageType "JXSearchEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXSearchEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSearchEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXSearchEvent_getPageType(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSearchEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXSearchEvent_pageName "JXSearchEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXSearchEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSearchEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXSearchEvent_getPageName(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSearchEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
