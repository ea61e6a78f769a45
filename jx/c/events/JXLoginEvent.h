// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXLoginEvent_H
#define JX_C_EVENTS_JXLoginEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer logged in. Always complete. Takes the fields of JXEvent too.
#define JXLoginEvent_class "JXLoginEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXLoginEvent_create(jx_object** event) {
  return jx_event_create("JXLoginEvent", event);
}

/// `method`, written as "method".
#define JXLoginEvent_method "JXLoginEvent.method"
/// Sets `method`; null makes it absent.
static inline jx_status JXLoginEvent_setMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXLoginEvent_method, value);
}

#ifdef __cplusplus
}
#endif

#endif
