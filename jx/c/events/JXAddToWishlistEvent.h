// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXAddToWishlistEvent_H
#define JX_C_EVENTS_JXAddToWishlistEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Items were put on the wish list. Takes the fields of JXECommerceEvent too.
#define JXAddToWishlistEvent_class "JXAddToWishlistEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXAddToWishlistEvent_create(jx_object** event) {
  return jx_event_create("JXAddToWishlistEvent", event);
}

/// `value`, written as "value".
#define JXAddToWishlistEvent_value "JXAddToWishlistEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXAddToWishlistEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXAddToWishlistEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXAddToWishlistEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXAddToWishlistEvent_value, value);
}

/// `currency`, written as "currency".
#define JXAddToWishlistEvent_currency "JXAddToWishlistEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXAddToWishlistEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXAddToWishlistEvent_currency, value);
}

/// `items`, written as "items".
#define JXAddToWishlistEvent_items "JXAddToWishlistEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXAddToWishlistEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXAddToWishlistEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
