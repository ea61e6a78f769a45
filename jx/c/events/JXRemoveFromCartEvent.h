// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXREMOVEFROMCARTEVENT_H
#define JX_C_EVENTS_JXREMOVEFROMCARTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Items were removed from the cart. Includes the fields of JXECommerceEvent and JXEvent.
#define JXRemoveFromCartEvent_class "JXRemoveFromCartEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXRemoveFromCartEvent_create(jx_object** event) {
  return jx_event_create("JXRemoveFromCartEvent", event);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXRemoveFromCartEvent_value "JXRemoveFromCartEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXRemoveFromCartEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRemoveFromCartEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXRemoveFromCartEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRemoveFromCartEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getValue(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXRemoveFromCartEvent_value, buffer, capacity, length);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXRemoveFromCartEvent_currency "JXRemoveFromCartEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXRemoveFromCartEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRemoveFromCartEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getCurrency(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRemoveFromCartEvent_currency, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXRemoveFromCartEvent_items "JXRemoveFromCartEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXRemoveFromCartEvent_items_append(jx_object* event,
                                                           const jx_object* item) {
  return jx_object_list_insert_item(event, JXRemoveFromCartEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getItems(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXRemoveFromCartEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXRemoveFromCartEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXRemoveFromCartEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXRemoveFromCartEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXRemoveFromCartEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXRemoveFromCartEvent_name "JXRemoveFromCartEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXRemoveFromCartEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRemoveFromCartEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getName(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRemoveFromCartEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXRemoveFromCartEvent_pageType "JXRemoveFromCartEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXRemoveFromCartEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRemoveFromCartEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getPageType(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRemoveFromCartEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXRemoveFromCartEvent_pageName "JXRemoveFromCartEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXRemoveFromCartEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRemoveFromCartEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXRemoveFromCartEvent_getPageName(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRemoveFromCartEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
