// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXViewItem_H
#define JX_C_EVENTS_JXViewItem_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An item was looked at. Its one amount is a revenue, where its neighbours have a value. Takes the
/// fields of JXECommerceEvent too.
#define JXViewItem_class "JXViewItem"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXViewItem_create(jx_object** event) {
  return jx_event_create("JXViewItem", event);
}

/// `currency`, written as "currency".
#define JXViewItem_currency "JXViewItem.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXViewItem_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItem_currency, value);
}

/// `revenue`, written as "revenue".
#define JXViewItem_revenue "JXViewItem.revenue"
/// Sets `revenue` from a decimal text; null makes it absent.
static inline jx_status JXViewItem_setRevenue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXViewItem_revenue, number);
}
/// Sets `revenue`.
static inline jx_status JXViewItem_setRevenue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXViewItem_revenue, value);
}

/// `items`, written as "items".
#define JXViewItem_items "JXViewItem.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewItem_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXViewItem_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
