// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXRefundEvent_H
#define JX_C_EVENTS_JXRefundEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Money given back for a purchase. It counts as complete as soon as it names an item. Takes the
/// fields of JXECommerceEvent too.
#define JXRefundEvent_class "JXRefundEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXRefundEvent_create(jx_object** event) {
  return jx_event_create("JXRefundEvent", event);
}

/// `currency`, written as "currency".
#define JXRefundEvent_currency "JXRefundEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXRefundEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_currency, value);
}

/// `value`, written as "value".
#define JXRefundEvent_value "JXRefundEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXRefundEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXRefundEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_value, value);
}

/// `ID`, written as "id".
#define JXRefundEvent_ID "JXRefundEvent.ID"
/// Sets `ID`; null makes it absent.
static inline jx_status JXRefundEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_ID, value);
}

/// `revenue`, written as "revenue".
#define JXRefundEvent_revenue "JXRefundEvent.revenue"
/// Sets `revenue` from a decimal text; null makes it absent.
static inline jx_status JXRefundEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_revenue, number);
}
/// Sets `revenue`.
static inline jx_status JXRefundEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_revenue, value);
}

/// `shippingAmount`, written as "shipping_amount".
#define JXRefundEvent_shippingAmount "JXRefundEvent.shippingAmount"
/// Sets `shippingAmount` from a decimal text; null makes it absent.
static inline jx_status JXRefundEvent_setShippingAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_shippingAmount, number);
}
/// Sets `shippingAmount`.
static inline jx_status JXRefundEvent_setShippingAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_shippingAmount, value);
}

/// `taxAmount`, written as "tax_amount".
#define JXRefundEvent_taxAmount "JXRefundEvent.taxAmount"
/// Sets `taxAmount` from a decimal text; null makes it absent.
static inline jx_status JXRefundEvent_setTaxAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXRefundEvent_taxAmount, number);
}
/// Sets `taxAmount`.
static inline jx_status JXRefundEvent_setTaxAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXRefundEvent_taxAmount, value);
}

/// `type`, written as "type".
#define JXRefundEvent_type "JXRefundEvent.type"
/// Sets `type`; null makes it absent.
static inline jx_status JXRefundEvent_setType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_type, value);
}

/// `url`, written as "url".
#define JXRefundEvent_url "JXRefundEvent.url"
/// Sets `url`; null makes it absent.
static inline jx_status JXRefundEvent_setUrl(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_url, value);
}

/// `coupon`, written as "coupon".
#define JXRefundEvent_coupon "JXRefundEvent.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXRefundEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXRefundEvent_coupon, value);
}

/// `items`, written as "items".
#define JXRefundEvent_items "JXRefundEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXRefundEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXRefundEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
