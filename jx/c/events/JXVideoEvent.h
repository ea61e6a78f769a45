// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXVideoEvent_H
#define JX_C_EVENTS_JXVideoEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of the video events: what each of them tells about its video session. On its own it has no
/// name and is never complete. Takes the fields of JXEvent too.
#define JXVideoEvent_class "JXVideoEvent"

/// A new one in `*event`, to be ended with `jx_object_free`.
static inline jx_status JXVideoEvent_create(jx_object** event) {
  return jx_event_create("JXVideoEvent", event);
}

/// `videoSessionID`, written as "video_session_id".
#define JXVideoEvent_videoSessionID "JXVideoEvent.videoSessionID"
/// Sets `videoSessionID`; null makes it absent.
static inline jx_status JXVideoEvent_setVideoSessionID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_videoSessionID, value);
}

/// `cursorPosition`, written as "cursor_position".
#define JXVideoEvent_cursorPosition "JXVideoEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal text; null makes it absent.
static inline jx_status JXVideoEvent_setCursorPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoEvent_cursorPosition, number);
}
/// Sets `cursorPosition`.
static inline jx_status JXVideoEvent_setCursorPosition_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoEvent_cursorPosition, value);
}

/// `totalLength`, written as "total_length".
#define JXVideoEvent_totalLength "JXVideoEvent.totalLength"
/// Sets `totalLength` from a decimal text; null makes it absent.
static inline jx_status JXVideoEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoEvent_totalLength, number);
}
/// Sets `totalLength`.
static inline jx_status JXVideoEvent_setTotalLength_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoEvent_totalLength, value);
}

/// `videoTitle`, written as "video_title".
#define JXVideoEvent_videoTitle "JXVideoEvent.videoTitle"
/// Sets `videoTitle`; null makes it absent.
static inline jx_status JXVideoEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_videoTitle, value);
}

/// `publisher`, written as "publisher".
#define JXVideoEvent_publisher "JXVideoEvent.publisher"
/// Sets `publisher`; null makes it absent.
static inline jx_status JXVideoEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_publisher, value);
}

#ifdef __cplusplus
}
#endif

#endif
