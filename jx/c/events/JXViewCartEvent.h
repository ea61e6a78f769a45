// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIEWCARTEVENT_H
#define JX_C_EVENTS_JXVIEWCARTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer opened the cart. Includes the fields of JXECommerceEvent and JXEvent.
#define JXViewCartEvent_class "JXViewCartEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXViewCartEvent_create(jx_object** event) {
  return jx_event_create("JXViewCartEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXViewCartEvent_currency "JXViewCartEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXViewCartEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewCartEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getCurrency(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewCartEvent_currency, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXViewCartEvent_value "JXViewCartEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXViewCartEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXViewCartEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXViewCartEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXViewCartEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getValue(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXViewCartEvent_value, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXViewCartEvent_items "JXViewCartEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewCartEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXViewCartEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getItems(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXViewCartEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXViewCartEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXViewCartEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXViewCartEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXViewCartEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXViewCartEvent_name "JXViewCartEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXViewCartEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewCartEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getName(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewCartEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXViewCartEvent_pageType "JXViewCartEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXViewCartEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewCartEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getPageType(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewCartEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXViewCartEvent_pageName "JXViewCartEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXViewCartEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewCartEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewCartEvent_getPageName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewCartEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
