// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXPurchaseEvent_H
#define JX_C_EVENTS_JXPurchaseEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A finished purchase: what was bought, for how much, how it is paid and how far it is. Takes the
/// fields of JXECommerceEvent too.
#define JXPurchaseEvent_class "JXPurchaseEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXPurchaseEvent_create(jx_object** event) {
  return jx_event_create("JXPurchaseEvent", event);
}

/// `currency`, written as "currency".
#define JXPurchaseEvent_currency "JXPurchaseEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXPurchaseEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_currency, value);
}

/// `ID`, written as "id".
#define JXPurchaseEvent_ID "JXPurchaseEvent.ID"
/// Sets `ID`; null makes it absent.
static inline jx_status JXPurchaseEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_ID, value);
}

/// `value`, written as "value".
#define JXPurchaseEvent_value "JXPurchaseEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXPurchaseEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXPurchaseEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_value, value);
}

/// `revenue`, written as "revenue".
#define JXPurchaseEvent_revenue "JXPurchaseEvent.revenue"
/// Sets `revenue` from a decimal text; null makes it absent.
static inline jx_status JXPurchaseEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_revenue, number);
}
/// Sets `revenue`.
static inline jx_status JXPurchaseEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_revenue, value);
}

/// `shippingAmount`, written as "shipping_amount".
#define JXPurchaseEvent_shippingAmount "JXPurchaseEvent.shippingAmount"
/// Sets `shippingAmount` from a decimal text; null makes it absent.
static inline jx_status JXPurchaseEvent_setShippingAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_shippingAmount, number);
}
/// Sets `shippingAmount`.
static inline jx_status JXPurchaseEvent_setShippingAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_shippingAmount, value);
}

/// `taxAmount`, written as "tax_amount".
#define JXPurchaseEvent_taxAmount "JXPurchaseEvent.taxAmount"
/// Sets `taxAmount` from a decimal text; null makes it absent.
static inline jx_status JXPurchaseEvent_setTaxAmount(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXPurchaseEvent_taxAmount, number);
}
/// Sets `taxAmount`.
static inline jx_status JXPurchaseEvent_setTaxAmount_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXPurchaseEvent_taxAmount, value);
}

/// `coupon`, written as "coupon".
#define JXPurchaseEvent_coupon "JXPurchaseEvent.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXPurchaseEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_coupon, value);
}

/// `type`, written as "type".
#define JXPurchaseEvent_type "JXPurchaseEvent.type"
/// Sets `type`; null makes it absent.
static inline jx_status JXPurchaseEvent_setType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_type, value);
}

/// `paymentMethod`, written as "payment_method".
#define JXPurchaseEvent_paymentMethod "JXPurchaseEvent.paymentMethod"
/// Sets `paymentMethod`; null makes it absent.
static inline jx_status JXPurchaseEvent_setPaymentMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_paymentMethod, value);
}

/// `status`, written as "status".
#define JXPurchaseEvent_status "JXPurchaseEvent.status"
/// Sets `status`; null makes it absent.
static inline jx_status JXPurchaseEvent_setStatus(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_status, value);
}

/// `url`, written as "url".
#define JXPurchaseEvent_url "JXPurchaseEvent.url"
/// Sets `url`; null makes it absent.
static inline jx_status JXPurchaseEvent_setUrl(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPurchaseEvent_url, value);
}

/// `items`, written as "items".
#define JXPurchaseEvent_items "JXPurchaseEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXPurchaseEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXPurchaseEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
