// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXAddPaymentInfoEvent_H
#define JX_C_EVENTS_JXAddPaymentInfoEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer chose how to pay. Items are not required. Takes the fields of JXECommerceEvent too.
#define JXAddPaymentInfoEvent_class "JXAddPaymentInfoEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXAddPaymentInfoEvent_create(jx_object** event) {
  return jx_event_create("JXAddPaymentInfoEvent", event);
}

/// `paymentMethod`, written as "payment_method".
#define JXAddPaymentInfoEvent_paymentMethod "JXAddPaymentInfoEvent.paymentMethod"
/// Sets `paymentMethod`; null makes it absent.
static inline jx_status JXAddPaymentInfoEvent_setPaymentMethod(
    jx_object* event,
    const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_paymentMethod, value);
}

/// `coupon`, written as "coupon".
#define JXAddPaymentInfoEvent_coupon "JXAddPaymentInfoEvent.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXAddPaymentInfoEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_coupon, value);
}

/// `revenue`, written as "revenue".
#define JXAddPaymentInfoEvent_revenue "JXAddPaymentInfoEvent.revenue"
/// Sets `revenue` from a decimal text; null makes it absent.
static inline jx_status JXAddPaymentInfoEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddPaymentInfoEvent_revenue, number);
}
/// Sets `revenue`.
static inline jx_status JXAddPaymentInfoEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddPaymentInfoEvent_revenue, value);
}

/// `currency`, written as "currency".
#define JXAddPaymentInfoEvent_currency "JXAddPaymentInfoEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXAddPaymentInfoEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddPaymentInfoEvent_currency, value);
}

/// `items`, written as "items".
#define JXAddPaymentInfoEvent_items "JXAddPaymentInfoEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddPaymentInfoEvent_items_append(
    jx_object* event,
    const jx_object* item) {
  return jx_object_add_item(event, JXAddPaymentInfoEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
