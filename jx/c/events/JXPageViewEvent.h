// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXPageViewEvent_H
#define JX_C_EVENTS_JXPageViewEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A page or screen was shown: `pageType` says which kind, `pageName` which one. Takes the fields
/// of JXEvent too.
#define JXPageViewEvent_class "JXPageViewEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXPageViewEvent_create(jx_object** event) {
  return jx_event_create("JXPageViewEvent", event);
}

/// `pageName`, written as "page_name".
#define JXPageViewEvent_pageName "JXPageViewEvent.pageName"
/// Sets `pageName`; null makes it absent.
static inline jx_status JXPageViewEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPageViewEvent_pageName, value);
}

/// `pageType`, written as "page_type".
#define JXPageViewEvent_pageType "JXPageViewEvent.pageType"
/// Sets `pageType`; null makes it absent.
static inline jx_status JXPageViewEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXPageViewEvent_pageType, value);
}

#ifdef __cplusplus
}
#endif

#endif
