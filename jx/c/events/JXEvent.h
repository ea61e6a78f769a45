// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXEvent_H
#define JX_C_EVENTS_JXEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of everything that a host hands to `ServerSide::execute`. The host owns its events and
/// fills them on one thread; an event must not be changed while it is being executed.
#define JXEvent_class "JXEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXEvent_create(jx_object** event) {
  return jx_event_create("JXEvent", event);
}

/// `name`, written as "event_name".
#define JXEvent_name "JXEvent.name"
/// Sets `name`; null makes it absent.
static inline jx_status JXEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_name, value);
}

/// `pageName`, written as "page_name".
#define JXEvent_pageName "JXEvent.pageName"
/// Sets `pageName`; null makes it absent.
static inline jx_status JXEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_pageName, value);
}

/// `pageType`, written as "page_type".
#define JXEvent_pageType "JXEvent.pageType"
/// Sets `pageType`; null makes it absent.
static inline jx_status JXEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXEvent_pageType, value);
}

#ifdef __cplusplus
}
#endif

#endif
