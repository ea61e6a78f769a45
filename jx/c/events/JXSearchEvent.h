// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXSearchEvent_H
#define JX_C_EVENTS_JXSearchEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer searched. Takes the fields of JXEvent too.
#define JXSearchEvent_class "JXSearchEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXSearchEvent_create(jx_object** event) {
  return jx_event_create("JXSearchEvent", event);
}

/// `searchTerm`, written as "search_term".
#define JXSearchEvent_searchTerm "JXSearchEvent.searchTerm"
/// Sets `searchTerm`; null makes it absent.
static inline jx_status JXSearchEvent_setSearchTerm(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXSearchEvent_searchTerm, value);
}

#ifdef __cplusplus
}
#endif

#endif
