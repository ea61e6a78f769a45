// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXGenerateLeadEvent_H
#define JX_C_EVENTS_JXGenerateLeadEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer became a lead. An amount and its currency come together or not at all. Takes the
/// fields of JXEvent too.
#define JXGenerateLeadEvent_class "JXGenerateLeadEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXGenerateLeadEvent_create(jx_object** event) {
  return jx_event_create("JXGenerateLeadEvent", event);
}

/// `currency`, written as "currency".
#define JXGenerateLeadEvent_currency "JXGenerateLeadEvent.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXGenerateLeadEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_currency, value);
}

/// `value`, written as "value".
#define JXGenerateLeadEvent_value "JXGenerateLeadEvent.value"
/// Sets `value` from a decimal text; null makes it absent.
static inline jx_status JXGenerateLeadEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXGenerateLeadEvent_value, number);
}
/// Sets `value`.
static inline jx_status JXGenerateLeadEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXGenerateLeadEvent_value, value);
}

/// `ID`, written as "id".
#define JXGenerateLeadEvent_ID "JXGenerateLeadEvent.ID"
/// Sets `ID`; null makes it absent.
static inline jx_status JXGenerateLeadEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_ID, value);
}

#ifdef __cplusplus
}
#endif

#endif
