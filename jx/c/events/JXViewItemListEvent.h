// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIEWITEMLISTEVENT_H
#define JX_C_EVENTS_JXVIEWITEMLISTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A list of items was shown. Includes the fields of JXEvent.
#define JXViewItemListEvent_class "JXViewItemListEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXViewItemListEvent_create(jx_object** event) {
  return jx_event_create("JXViewItemListEvent", event);
}

/// The name of the list. JSON key "item_list_name".
#define JXViewItemListEvent_itemListName "JXViewItemListEvent.itemListName"
/// Sets `itemListName`; null removes the value.
static inline jx_status JXViewItemListEvent_setItemListName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItemListEvent_itemListName, value);
}
/// Writes `itemListName` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItemListEvent_getItemListName(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItemListEvent_itemListName, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXViewItemListEvent_items "JXViewItemListEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewItemListEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXViewItemListEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItemListEvent_getItems(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXViewItemListEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXViewItemListEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXViewItemListEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXViewItemListEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXViewItemListEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXViewItemListEvent_name "JXViewItemListEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXViewItemListEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItemListEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItemListEvent_getName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItemListEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXViewItemListEvent_pageType "JXViewItemListEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXViewItemListEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItemListEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItemListEvent_getPageType(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItemListEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXViewItemListEvent_pageName "JXViewItemListEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXViewItemListEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItemListEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItemListEvent_getPageName(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItemListEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
