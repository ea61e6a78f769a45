// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXSignUpEvent_H
#define JX_C_EVENTS_JXSignUpEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer made an account. Always complete. Takes the fields of JXEvent too.
#define JXSignUpEvent_class "JXSignUpEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXSignUpEvent_create(jx_object** event) {
  return jx_event_create("JXSignUpEvent", event);
}

/// `method`, written as "method".
#define JXSignUpEvent_method "JXSignUpEvent.method"
/// Sets `method`; null makes it absent.
static inline jx_status JXSignUpEvent_setMethod(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSignUpEvent_method, value);
}

#ifdef __cplusplus
}
#endif

#endif
