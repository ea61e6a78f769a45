// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXADDTOWISHLISTEVENT_H
#define JX_C_EVENTS_JXADDTOWISHLISTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Items were added to the wish list. Includes the fields of JXECommerceEvent and JXEvent.
#define JXAddToWishlistEvent_class "JXAddToWishlistEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXAddToWishlistEvent_create(jx_object** event) {
  return jx_event_create("JXAddToWishlistEvent", event);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXAddToWishlistEvent_value "JXAddToWishlistEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXAddToWishlistEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddToWishlistEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXAddToWishlistEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddToWishlistEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getValue(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXAddToWishlistEvent_value, buffer, capacity, length);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXAddToWishlistEvent_currency "JXAddToWishlistEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXAddToWishlistEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToWishlistEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getCurrency(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToWishlistEvent_currency, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXAddToWishlistEvent_items "JXAddToWishlistEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddToWishlistEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXAddToWishlistEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getItems(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXAddToWishlistEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXAddToWishlistEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXAddToWishlistEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXAddToWishlistEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXAddToWishlistEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXAddToWishlistEvent_name "JXAddToWishlistEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXAddToWishlistEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToWishlistEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToWishlistEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXAddToWishlistEvent_pageType "JXAddToWishlistEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXAddToWishlistEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToWishlistEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getPageType(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToWishlistEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXAddToWishlistEvent_pageName "JXAddToWishlistEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXAddToWishlistEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToWishlistEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddToWishlistEvent_getPageName(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddToWishlistEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
