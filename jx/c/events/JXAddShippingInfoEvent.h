// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXADDSHIPPINGINFOEVENT_H
#define JX_C_EVENTS_JXADDSHIPPINGINFOEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer selected a shipping method for the items. Includes the fields of JXECommerceEvent and
/// JXEvent.
#define JXAddShippingInfoEvent_class "JXAddShippingInfoEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXAddShippingInfoEvent_create(jx_object** event) {
  return jx_event_create("JXAddShippingInfoEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXAddShippingInfoEvent_currency "JXAddShippingInfoEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getCurrency(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_currency, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXAddShippingInfoEvent_value "JXAddShippingInfoEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddShippingInfoEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXAddShippingInfoEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddShippingInfoEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getValue(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXAddShippingInfoEvent_value, buffer, capacity, length);
}

/// The coupon code used. JSON key "coupon".
#define JXAddShippingInfoEvent_coupon "JXAddShippingInfoEvent.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getCoupon(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_coupon, buffer, capacity, length);
}

/// The name of the selected shipping method. JSON key "shipping_tier".
#define JXAddShippingInfoEvent_shippingTier "JXAddShippingInfoEvent.shippingTier"
/// Sets `shippingTier`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setShippingTier(jx_object* event,
                                                               const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_shippingTier, value);
}
/// Writes `shippingTier` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getShippingTier(const jx_object* event, char* buffer,
                                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_shippingTier, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXAddShippingInfoEvent_items "JXAddShippingInfoEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddShippingInfoEvent_items_append(jx_object* event,
                                                            const jx_object* item) {
  return jx_object_list_insert_item(event, JXAddShippingInfoEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getItems(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXAddShippingInfoEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXAddShippingInfoEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXAddShippingInfoEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXAddShippingInfoEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXAddShippingInfoEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXAddShippingInfoEvent_name "JXAddShippingInfoEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getName(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXAddShippingInfoEvent_pageType "JXAddShippingInfoEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getPageType(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXAddShippingInfoEvent_pageName "JXAddShippingInfoEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXAddShippingInfoEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddShippingInfoEvent_getPageName(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddShippingInfoEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
