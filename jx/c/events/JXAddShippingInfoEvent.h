// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXAddShippingInfoEvent_H
#define JX_C_EVENTS_JXAddShippingInfoEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer chose how the items are shipped. Takes the fields of JXECommerceEvent too.
#define JXAddShippingInfoEvent_class "JXAddShippingInfoEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXAddShippingInfoEvent_create(jx_object** event) {
  return jx_event_create("JXAddShippingInfoEvent", event);
}

/// `currency`, written as "currency".
#define JXAddShippingInfoEvent_currency "JXAddShippingInfoEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXAddShippingInfoEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_currency, value);
}

/// `value`, written as "value".
#define JXAddShippingInfoEvent_value "JXAddShippingInfoEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXAddShippingInfoEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddShippingInfoEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXAddShippingInfoEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddShippingInfoEvent_value, value);
}

/// `coupon`, written as "coupon".
#define JXAddShippingInfoEvent_coupon "JXAddShippingInfoEvent.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXAddShippingInfoEvent_setCoupon(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_coupon, value);
}

/// `shippingTier`, written as "shipping_tier".
#define JXAddShippingInfoEvent_shippingTier "JXAddShippingInfoEvent.shippingTier"
/// Sets `shippingTier`; null makes it absent.
static inline jx_status JXAddShippingInfoEvent_setShippingTier(
    jx_object* event,
    const char* value) {
  return jx_object_set_string(event, JXAddShippingInfoEvent_shippingTier, value);
}

/// `items`, written as "items".
#define JXAddShippingInfoEvent_items "JXAddShippingInfoEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddShippingInfoEvent_items_append(
    jx_object* event,
    const jx_object* item) {
  return jx_object_add_item(event, JXAddShippingInfoEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
