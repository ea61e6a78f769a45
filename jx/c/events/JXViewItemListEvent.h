// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXViewItemListEvent_H
#define JX_C_EVENTS_JXViewItemListEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A list of items was shown. Takes the fields of JXEvent too.
#define JXViewItemListEvent_class "JXViewItemListEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXViewItemListEvent_create(jx_object** event) {
  return jx_event_create("JXViewItemListEvent", event);
}

/// `itemListName`, written as "item_list_name".
#define JXViewItemListEvent_itemListName "JXViewItemListEvent.itemListName"
/// Sets `itemListName`; null makes it absent.
static inline jx_status JXViewItemListEvent_setItemListName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXViewItemListEvent_itemListName, value);
}

/// `items`, written as "items".
#define JXViewItemListEvent_items "JXViewItemListEvent.items"
/// Appends a copy of an item to `items`.
static inline jx_status JXViewItemListEvent_items_append(jx_object* event, const jx_object* item) {
  return jx_object_add_item(event, JXViewItemListEvent_items, item);
}

#ifdef __cplusplus
}
#endif

#endif
