// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXBeginCheckoutEvent_H
#define JX_C_EVENTS_JXBeginCheckoutEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The checkout has begun. Takes the fields of JXECommerceEvent too.
#define JXBeginCheckoutEvent_class "JXBeginCheckoutEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXBeginCheckoutEvent_create(jx_object** event) {
  return jx_event_create("JXBeginCheckoutEvent", event);
}

/// `value`, written as "value".
#define JXBeginCheckoutEvent_value "JXBeginCheckoutEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXBeginCheckoutEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXBeginCheckoutEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXBeginCheckoutEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXBeginCheckoutEvent_value, value);
}

/// `revenue`, written as "revenue".
#define JXBeginCheckoutEvent_revenue "JXBeginCheckoutEvent.revenue"
/// Sets `revenue` from a decimal text; null makes it absent.
static inline jx_status JXBeginCheckoutEvent_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXBeginCheckoutEvent_revenue, number);
}
/// Sets `revenue`.
static inline jx_status JXBeginCheckoutEvent_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXBeginCheckoutEvent_revenue, value);
}

/// `currency`, written as "currency".
#define JXBeginCheckoutEvent_currency "JXBeginCheckoutEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXBeginCheckoutEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_currency, value);
}

/// `coupon`, written as "coupon".
#define JXBeginCheckoutEvent_coupon "JXBeginCheckoutEvent.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXBeginCheckoutEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXBeginCheckoutEvent_coupon, value);
}

/// `items`, written as "items".
#define JXBeginCheckoutEvent_items "JXBeginCheckoutEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXBeginCheckoutEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXBeginCheckoutEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
