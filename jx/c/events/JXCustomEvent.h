// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXCustomEvent_H
#define JX_C_EVENTS_JXCustomEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An event of the host's own making: a name, and whatever parameters the host adds. Takes the
/// fields of JXEvent too.
#define JXCustomEvent_class "JXCustomEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXCustomEvent_create(const char* name, jx_object** event) {
  return jx_custom_event_create(name, event);
}

#ifdef __cplusplus
}
#endif

#endif
