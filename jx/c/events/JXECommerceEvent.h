// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXECOMMERCEEVENT_H
#define JX_C_EVENTS_JXECOMMERCEEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of the e-commerce events: a currency and a list of items. Each derived class writes them in
/// its own order. This class itself writes neither and always passes validation. Includes the
/// fields of JXEvent.
#define JXECommerceEvent_class "JXECommerceEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXECommerceEvent_create(jx_object** event) {
  return jx_event_create("JXECommerceEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
/// This class does not write it.
#define JXECommerceEvent_currency "JXECommerceEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXECommerceEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXECommerceEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXECommerceEvent_getCurrency(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXECommerceEvent_currency, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items". This
/// class does not write it.
#define JXECommerceEvent_items "JXECommerceEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXECommerceEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXECommerceEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXECommerceEvent_getItems(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXECommerceEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXECommerceEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXECommerceEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXECommerceEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXECommerceEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXECommerceEvent_name "JXECommerceEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXECommerceEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXECommerceEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXECommerceEvent_getName(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXECommerceEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXECommerceEvent_pageType "JXECommerceEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXECommerceEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXECommerceEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXECommerceEvent_getPageType(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXECommerceEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXECommerceEvent_pageName "JXECommerceEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXECommerceEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXECommerceEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXECommerceEvent_getPageName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXECommerceEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
