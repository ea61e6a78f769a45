// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXADDTOCARTEVENT_H
#define JX_C_EVENTS_JXADDTOCARTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Items were added to the cart. Includes the fields of JXECommerceEvent and JXEvent.
#define JXAddToCartEvent_class "JXAddToCartEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXAddToCartEvent_create(jx_object** event) {
  return jx_event_create("JXAddToCartEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXAddToCartEvent_currency "JXAddToCartEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXAddToCartEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToCartEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getCurrency(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToCartEvent_currency, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXAddToCartEvent_value "JXAddToCartEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXAddToCartEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddToCartEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXAddToCartEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddToCartEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getValue(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXAddToCartEvent_value, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXAddToCartEvent_items "JXAddToCartEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddToCartEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXAddToCartEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getItems(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXAddToCartEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXAddToCartEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXAddToCartEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXAddToCartEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXAddToCartEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXAddToCartEvent_name "JXAddToCartEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXAddToCartEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToCartEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getName(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToCartEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXAddToCartEvent_pageType "JXAddToCartEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXAddToCartEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToCartEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getPageType(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToCartEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXAddToCartEvent_pageName "JXAddToCartEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXAddToCartEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToCartEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToCartEvent_getPageName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToCartEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
