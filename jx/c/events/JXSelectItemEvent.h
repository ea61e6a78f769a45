// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXSELECTITEMEVENT_H
#define JX_C_EVENTS_JXSELECTITEMEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer selected an item of a list. Includes the fields of JXEvent.
#define JXSelectItemEvent_class "JXSelectItemEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXSelectItemEvent_create(jx_object** event) {
  return jx_event_create("JXSelectItemEvent", event);
}

/// The name of the list. JSON key "item_list_name".
#define JXSelectItemEvent_itemListName "JXSelectItemEvent.itemListName"
/// Sets `itemListName`; null removes the value.
static inline jx_status JXSelectItemEvent_setItemListName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectItemEvent_itemListName, value);
}
/// Writes `itemListName` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectItemEvent_getItemListName(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectItemEvent_itemListName, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXSelectItemEvent_items "JXSelectItemEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXSelectItemEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXSelectItemEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectItemEvent_getItems(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXSelectItemEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXSelectItemEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXSelectItemEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXSelectItemEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXSelectItemEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXSelectItemEvent_name "JXSelectItemEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXSelectItemEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectItemEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectItemEvent_getName(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectItemEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXSelectItemEvent_pageType "JXSelectItemEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXSelectItemEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectItemEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectItemEvent_getPageType(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectItemEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXSelectItemEvent_pageName "JXSelectItemEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXSelectItemEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectItemEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXSelectItemEvent_getPageName(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXSelectItemEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
