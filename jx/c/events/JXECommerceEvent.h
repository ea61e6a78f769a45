// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXECommerceEvent_H
#define JX_C_EVENTS_JXECommerceEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of the shopping events: a currency and a list of items, which the classes below write each
/// in its own place. On its own it writes neither, and always verifies. Takes the fields of JXEvent
/// too.
#define JXECommerceEvent_class "JXECommerceEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXECommerceEvent_create(jx_object** event) {
  return jx_event_create("JXECommerceEvent", event);
}

/// `currency`, written as "currency" by the classes that say so.
#define JXECommerceEvent_currency "JXECommerceEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXECommerceEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXECommerceEvent_currency, value);
}

/// `items`, written as "items" by the classes that say so.
#define JXECommerceEvent_items "JXECommerceEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXECommerceEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXECommerceEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
