// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXAddToCartEvent_H
#define JX_C_EVENTS_JXAddToCartEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Items were put into the cart. Takes the fields of JXECommerceEvent too.
#define JXAddToCartEvent_class "JXAddToCartEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXAddToCartEvent_create(jx_object** event) {
  return jx_event_create("JXAddToCartEvent", event);
}

/// `currency`, written as "currency".
#define JXAddToCartEvent_currency "JXAddToCartEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXAddToCartEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToCartEvent_currency, value);
}

/// `value`, written as "value".
#define JXAddToCartEvent_value "JXAddToCartEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXAddToCartEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddToCartEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXAddToCartEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddToCartEvent_value, value);
}

/// `items`, written as "items".
#define JXAddToCartEvent_items "JXAddToCartEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddToCartEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXAddToCartEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
