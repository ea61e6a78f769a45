// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXBEGINCHECKOUTEVENT_H
#define JX_C_EVENTS_JXBEGINCHECKOUTEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer began the checkout. Includes the fields of JXECommerceEvent and JXEvent.
#define JXBeginCheckoutEvent_class "JXBeginCheckoutEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXBeginCheckoutEvent_create(jx_object** event) {
  return jx_event_create("JXBeginCheckoutEvent", event);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXBeginCheckoutEvent_value "JXBeginCheckoutEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXBeginCheckoutEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXBeginCheckoutEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXBeginCheckoutEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getValue(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXBeginCheckoutEvent_value, buffer, capacity, length);
}

/// The revenue, in units of `currency`. JSON key "revenue".
#define JXBeginCheckoutEvent_revenue "JXBeginCheckoutEvent.revenue"
/// Sets `revenue` from a decimal string; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXBeginCheckoutEvent_revenue, number);
}
/// Sets `revenue` from an integer.
static inline jx_status JXBeginCheckoutEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXBeginCheckoutEvent_revenue, value);
}
/// Writes `revenue` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getRevenue(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXBeginCheckoutEvent_revenue, buffer, capacity, length);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXBeginCheckoutEvent_currency "JXBeginCheckoutEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getCurrency(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXBeginCheckoutEvent_currency, buffer, capacity, length);
}

/// The coupon code used. JSON key "coupon".
#define JXBeginCheckoutEvent_coupon "JXBeginCheckoutEvent.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getCoupon(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXBeginCheckoutEvent_coupon, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXBeginCheckoutEvent_items "JXBeginCheckoutEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXBeginCheckoutEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXBeginCheckoutEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getItems(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXBeginCheckoutEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXBeginCheckoutEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXBeginCheckoutEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXBeginCheckoutEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXBeginCheckoutEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXBeginCheckoutEvent_name "JXBeginCheckoutEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXBeginCheckoutEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXBeginCheckoutEvent_pageType "JXBeginCheckoutEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getPageType(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXBeginCheckoutEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXBeginCheckoutEvent_pageName "JXBeginCheckoutEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXBeginCheckoutEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXBeginCheckoutEvent_getPageName(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXBeginCheckoutEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
