// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXADDPAYMENTINFOEVENT_H
#define JX_C_EVENTS_JXADDPAYMENTINFOEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer selected a payment method. Items are not required. The field table lists `coupon`
/// twice; it is written once, directly after `paymentMethod`. Includes the fields of
/// JXECommerceEvent and JXEvent.
#define JXAddPaymentInfoEvent_class "JXAddPaymentInfoEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXAddPaymentInfoEvent_create(jx_object** event) {
  return jx_event_create("JXAddPaymentInfoEvent", event);
}

/// The payment method: an `EJXPayementMethod_*` string or any other string. Not validated further.
/// JSON key "payment_method".
#define JXAddPaymentInfoEvent_paymentMethod "JXAddPaymentInfoEvent.paymentMethod"
/// Sets `paymentMethod`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setPaymentMethod(jx_object* event,
                                                               const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_paymentMethod, value);
}
/// Writes `paymentMethod` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getPaymentMethod(const jx_object* event, char* buffer,
                                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_paymentMethod, buffer, capacity, length);
}

/// The coupon code used. Written once, directly after `paymentMethod`. JSON key "coupon".
#define JXAddPaymentInfoEvent_coupon "JXAddPaymentInfoEvent.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getCoupon(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_coupon, buffer, capacity, length);
}

/// The revenue, in units of `currency`. JSON key "revenue".
#define JXAddPaymentInfoEvent_revenue "JXAddPaymentInfoEvent.revenue"
/// Sets `revenue` from a decimal string; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddPaymentInfoEvent_revenue, number);
}
/// Sets `revenue` from an integer.
static inline jx_status JXAddPaymentInfoEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddPaymentInfoEvent_revenue, value);
}
/// Writes `revenue` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getRevenue(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXAddPaymentInfoEvent_revenue, buffer, capacity, length);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXAddPaymentInfoEvent_currency "JXAddPaymentInfoEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getCurrency(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_currency, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXAddPaymentInfoEvent_items "JXAddPaymentInfoEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddPaymentInfoEvent_items_append(jx_object* event,
                                                           const jx_object* item) {
  return jx_object_list_insert_item(event, JXAddPaymentInfoEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getItems(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXAddPaymentInfoEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXAddPaymentInfoEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXAddPaymentInfoEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXAddPaymentInfoEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXAddPaymentInfoEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXAddPaymentInfoEvent_name "JXAddPaymentInfoEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getName(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXAddPaymentInfoEvent_pageType "JXAddPaymentInfoEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getPageType(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXAddPaymentInfoEvent_pageName "JXAddPaymentInfoEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXAddPaymentInfoEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXAddPaymentInfoEvent_getPageName(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXAddPaymentInfoEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
