// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIEWITEM_H
#define JX_C_EVENTS_JXVIEWITEM_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer opened an item. The event's amount is `revenue`; the cart and wish list events have
/// `value` instead. Includes the fields of JXECommerceEvent and JXEvent.
#define JXViewItem_class "JXViewItem"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXViewItem_create(jx_object** event) {
  return jx_event_create("JXViewItem", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXViewItem_currency "JXViewItem.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXViewItem_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItem_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getCurrency(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItem_currency, buffer, capacity, length);
}

/// The revenue, in units of `currency`. JSON key "revenue".
#define JXViewItem_revenue "JXViewItem.revenue"
/// Sets `revenue` from a decimal string; null removes the value.
static inline jx_status JXViewItem_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXViewItem_revenue, number);
}
/// Sets `revenue` from an integer.
static inline jx_status JXViewItem_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXViewItem_revenue, value);
}
/// Writes `revenue` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getRevenue(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_number(event, JXViewItem_revenue, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXViewItem_items "JXViewItem.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewItem_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXViewItem_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getItems(const jx_object* event, char* buffer, size_t capacity,
                                            size_t* length) {
  return jx_object_get_json(event, JXViewItem_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXViewItem_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXViewItem_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXViewItem_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXViewItem_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXViewItem_name "JXViewItem.name"
/// Sets `name`; null removes the value.
static inline jx_status JXViewItem_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItem_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getName(const jx_object* event, char* buffer, size_t capacity,
                                           size_t* length) {
  return jx_object_get_string(event, JXViewItem_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXViewItem_pageType "JXViewItem.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXViewItem_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItem_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getPageType(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItem_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXViewItem_pageName "JXViewItem.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXViewItem_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItem_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXViewItem_getPageName(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXViewItem_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
