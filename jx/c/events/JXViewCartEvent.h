// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXViewCartEvent_H
#define JX_C_EVENTS_JXViewCartEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The cart was looked at. Takes the fields of JXECommerceEvent too.
#define JXViewCartEvent_class "JXViewCartEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXViewCartEvent_create(jx_object** event) {
  return jx_event_create("JXViewCartEvent", event);
}

/// `currency`, written as "currency".
#define JXViewCartEvent_currency "JXViewCartEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXViewCartEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewCartEvent_currency, value);
}

/// `value`, written as "value".
#define JXViewCartEvent_value "JXViewCartEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXViewCartEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXViewCartEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXViewCartEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXViewCartEvent_value, value);
}

/// `items`, written as "items".
#define JXViewCartEvent_items "JXViewCartEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewCartEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXViewCartEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
