// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXPURCHASEEVENT_H
#define JX_C_EVENTS_JXPURCHASEEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A completed purchase: items, amounts, payment method and order status. Includes the fields of
/// JXECommerceEvent and JXEvent.
#define JXPurchaseEvent_class "JXPurchaseEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXPurchaseEvent_create(jx_object** event) {
  return jx_event_create("JXPurchaseEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXPurchaseEvent_currency "JXPurchaseEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXPurchaseEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getCurrency(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_currency, buffer, capacity, length);
}

/// The identifier of the order. JSON key "id".
#define JXPurchaseEvent_ID "JXPurchaseEvent.ID"
/// Sets `ID`; null removes the value.
static inline jx_status JXPurchaseEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_ID, value);
}
/// Writes `ID` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getID(const jx_object* event, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_ID, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXPurchaseEvent_value "JXPurchaseEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXPurchaseEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXPurchaseEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getValue(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXPurchaseEvent_value, buffer, capacity, length);
}

/// The revenue, in units of `currency`. JSON key "revenue".
#define JXPurchaseEvent_revenue "JXPurchaseEvent.revenue"
/// Sets `revenue` from a decimal string; null removes the value.
static inline jx_status JXPurchaseEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_revenue, number);
}
/// Sets `revenue` from an integer.
static inline jx_status JXPurchaseEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_revenue, value);
}
/// Writes `revenue` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getRevenue(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXPurchaseEvent_revenue, buffer, capacity, length);
}

/// The shipping costs, in units of `currency`. JSON key "shipping_amount".
#define JXPurchaseEvent_shippingAmount "JXPurchaseEvent.shippingAmount"
/// Sets `shippingAmount` from a decimal string; null removes the value.
static inline jx_status JXPurchaseEvent_setShippingAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_shippingAmount, number);
}
/// Sets `shippingAmount` from an integer.
static inline jx_status JXPurchaseEvent_setShippingAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_shippingAmount, value);
}
/// Writes `shippingAmount` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getShippingAmount(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXPurchaseEvent_shippingAmount, buffer, capacity, length);
}

/// The tax, in units of `currency`. JSON key "tax_amount".
#define JXPurchaseEvent_taxAmount "JXPurchaseEvent.taxAmount"
/// Sets `taxAmount` from a decimal string; null removes the value.
static inline jx_status JXPurchaseEvent_setTaxAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_taxAmount, number);
}
/// Sets `taxAmount` from an integer.
static inline jx_status JXPurchaseEvent_setTaxAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_taxAmount, value);
}
/// Writes `taxAmount` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getTaxAmount(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXPurchaseEvent_taxAmount, buffer, capacity, length);
}

/// The coupon code used. JSON key "coupon".
#define JXPurchaseEvent_coupon "JXPurchaseEvent.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXPurchaseEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getCoupon(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_coupon, buffer, capacity, length);
}

/// The type of the transaction, a free-form string. JSON key "type".
#define JXPurchaseEvent_type "JXPurchaseEvent.type"
/// Sets `type`; null removes the value.
static inline jx_status JXPurchaseEvent_setType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_type, value);
}
/// Writes `type` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getType(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_type, buffer, capacity, length);
}

/// The payment method: an `EJXPayementMethod_*` string or any other string. Not validated further.
/// JSON key "payment_method".
#define JXPurchaseEvent_paymentMethod "JXPurchaseEvent.paymentMethod"
/// Sets `paymentMethod`; null removes the value.
static inline jx_status JXPurchaseEvent_setPaymentMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_paymentMethod, value);
}
/// Writes `paymentMethod` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getPaymentMethod(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_paymentMethod, buffer, capacity, length);
}

/// The status: an `EJXPurchaseStatus_*` string or any other string. Not validated further. JSON key
/// "status".
#define JXPurchaseEvent_status "JXPurchaseEvent.status"
/// Sets `status`; null removes the value.
static inline jx_status JXPurchaseEvent_setStatus(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_status, value);
}
/// Writes `status` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getStatus(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_status, buffer, capacity, length);
}

/// A URL that belongs to the transaction. JSON key "url".
#define JXPurchaseEvent_url "JXPurchaseEvent.url"
/// Sets `url`; null removes the value.
static inline jx_status JXPurchaseEvent_setUrl(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_url, value);
}
/// Writes `url` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getUrl(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_url, buffer, capacity, length);
}

/// The event's list of items, initially empty; callers may append to it. JSON key "items".
#define JXPurchaseEvent_items "JXPurchaseEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXPurchaseEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_list_insert_item(event, JXPurchaseEvent_items, JX_LIST_END, item);
}
/// Writes `items` as a JSON array of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getItems(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXPurchaseEvent_items, buffer, capacity, length);
}
/// Writes the number of elements of `items`.
static inline jx_status JXPurchaseEvent_items_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXPurchaseEvent_items, count);
}
/// Sets `items` to an empty list.
static inline jx_status JXPurchaseEvent_items_clear(jx_object* event) {
  return jx_object_list_clear(event, JXPurchaseEvent_items);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXPurchaseEvent_name "JXPurchaseEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXPurchaseEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getName(const jx_object* event, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXPurchaseEvent_pageType "JXPurchaseEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXPurchaseEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getPageType(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXPurchaseEvent_pageName "JXPurchaseEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXPurchaseEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXPurchaseEvent_getPageName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXPurchaseEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
