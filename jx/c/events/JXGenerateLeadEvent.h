// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXGENERATELEADEVENT_H
#define JX_C_EVENTS_JXGENERATELEADEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer became a lead. `value` and `currency` must be set together or not at all. Includes
/// the fields of JXEvent.
#define JXGenerateLeadEvent_class "JXGenerateLeadEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXGenerateLeadEvent_create(jx_object** event) {
  return jx_event_create("JXGenerateLeadEvent", event);
}

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXGenerateLeadEvent_currency "JXGenerateLeadEvent.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXGenerateLeadEvent_setCurrency(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getCurrency(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXGenerateLeadEvent_currency, buffer, capacity, length);
}

/// The monetary value of the event, in units of `currency`. JSON key "value".
#define JXGenerateLeadEvent_value "JXGenerateLeadEvent.value"
/// Sets `value` from a decimal string; null removes the value.
static inline jx_status JXGenerateLeadEvent_setValue(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXGenerateLeadEvent_value, number);
}
/// Sets `value` from an integer.
static inline jx_status JXGenerateLeadEvent_setValue_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXGenerateLeadEvent_value, value);
}
/// Writes `value` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getValue(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXGenerateLeadEvent_value, buffer, capacity, length);
}

/// The identifier of the lead. JSON key "id".
#define JXGenerateLeadEvent_ID "JXGenerateLeadEvent.ID"
/// Sets `ID`; null removes the value.
static inline jx_status JXGenerateLeadEvent_setID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_ID, value);
}
/// Writes `ID` to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getID(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXGenerateLeadEvent_ID, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXGenerateLeadEvent_name "JXGenerateLeadEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXGenerateLeadEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXGenerateLeadEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXGenerateLeadEvent_pageType "JXGenerateLeadEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXGenerateLeadEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getPageType(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXGenerateLeadEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXGenerateLeadEvent_pageName "JXGenerateLeadEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXGenerateLeadEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXGenerateLeadEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXGenerateLeadEvent_getPageName(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXGenerateLeadEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
