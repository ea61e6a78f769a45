// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXREFUNDEVENT_H
#define JX_C_EVENTS_JXREFUNDEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A refund for a purchase. It is valid if it contains at least one item. Includes the fields of
/// JXECommerceEvent and JXEvent.
#define JXRefundEvent_class "JXRefundEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXRefundEvent_create(jx_object** event) {
  return jx_event_create("JXRefundEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXRefundEvent_currency "JXRefundEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXRefundEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getCurrency(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_currency, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXRefundEvent_value "JXRefundEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXRefundEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXRefundEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getValue(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXRefundEvent_value, buffer, capacity, length);
}

/// The identifier of the refunded order. JSON key "id".
#define JXRefundEvent_ID "JXRefundEvent.ID"
/// Sets `ID`; null removes the value.
static inline jx_status JXRefundEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_ID, value);
}
/// Writes `ID` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getID(const jx_object* event, char* buffer, size_t capacity,
                                            size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_ID, buffer, capacity, length);
}

/// The revenue, in units of `currency`. JSON key "revenue".
#define JXRefundEvent_revenue "JXRefundEvent.revenue"
/// Sets `revenue` from a decimal string; null removes the value.
static inline jx_status JXRefundEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_revenue, number);
}
/// Sets `revenue` from an integer.
static inline jx_status JXRefundEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_revenue, value);
}
/// Writes `revenue` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getRevenue(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXRefundEvent_revenue, buffer, capacity, length);
}

/// The shipping costs, in units of `currency`. JSON key "shipping_amount".
#define JXRefundEvent_shippingAmount "JXRefundEvent.shippingAmount"
/// Sets `shippingAmount` from a decimal string; null removes the value.
static inline jx_status JXRefundEvent_setShippingAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_shippingAmount, number);
}
/// Sets `shippingAmount` from an integer.
static inline jx_status JXRefundEvent_setShippingAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_shippingAmount, value);
}
/// Writes `shippingAmount` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getShippingAmount(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXRefundEvent_shippingAmount, buffer, capacity, length);
}

/// The tax, in units of `currency`. JSON key "tax_amount".
#define JXRefundEvent_taxAmount "JXRefundEvent.taxAmount"
/// Sets `taxAmount` from a decimal string; null removes the value.
static inline jx_status JXRefundEvent_setTaxAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_taxAmount, number);
}
/// Sets `taxAmount` from an integer.
static inline jx_status JXRefundEvent_setTaxAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_taxAmount, value);
}
/// Writes `taxAmount` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getTaxAmount(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXRefundEvent_taxAmount, buffer, capacity, length);
}

/// The type of the transaction, a free-form string. JSON key "type".
#define JXRefundEvent_type "JXRefundEvent.type"
/// Sets `type`; null removes the value.
static inline jx_status JXRefundEvent_setType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_type, value);
}
/// Writes `type` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getType(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_type, buffer, capacity, length);
}

/// A URL that belongs to the transaction. JSON key "url".
#define JXRefundEvent_url "JXRefundEvent.url"
/// Sets `url`; null removes the value.
static inline jx_status JXRefundEvent_setUrl(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_url, value);
}
/// Writes `url` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getUrl(const jx_object* event, char* buffer, size_t capacity,
                                             size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_url, buffer, capacity, length);
}

/// The coupon code used. JSON key "coupon".
#define JXRefundEvent_coupon "JXRefundEvent.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXRefundEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getCoupon(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_coupon, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXRefundEvent_items "JXRefundEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXRefundEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXRefundEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getItems(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXRefundEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXRefundEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXRefundEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXRefundEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXRefundEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXRefundEvent_name "JXRefundEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXRefundEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXRefundEvent_pageType "JXRefundEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXRefundEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getPageType(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXRefundEvent_pageName "JXRefundEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXRefundEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXRefundEvent_getPageName(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXRefundEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
