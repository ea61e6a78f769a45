// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXSelectContentEvent_H
#define JX_C_EVENTS_JXSelectContentEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer chose a piece of content. Always complete. Takes the fields of JXEvent too.
#define JXSelectContentEvent_class "JXSelectContentEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXSelectContentEvent_create(jx_object** event) {
  return jx_event_create("JXSelectContentEvent", event);
}

/// `contentType`, written as "content_type".
#define JXSelectContentEvent_contentType "JXSelectContentEvent.contentType"
/// Sets `contentType`; null makes it absent.
static inline jx_status JXSelectContentEvent_setContentType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_contentType, value);
}

/// `itemID`, written as "item_id".
#define JXSelectContentEvent_itemID "JXSelectContentEvent.itemID"
/// Sets `itemID`; null makes it absent.
static inline jx_status JXSelectContentEvent_setItemID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSelectContentEvent_itemID, value);
}

#ifdef __cplusplus
}
#endif

#endif
