// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIDEOEVENT_H
#define JX_C_EVENTS_JXVIDEOEVENT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Base of the video events: the fields that describe the video session. This class itself has no
/// event name and never passes validation. Includes the fields of JXEvent.
#define JXVideoEvent_class "JXVideoEvent"

/// Creates an event in `*event`; free it with `jx_object_free`.
static inline jx_status JXVideoEvent_create(jx_object** event) {
  return jx_event_create("JXVideoEvent", event);
}

/// The video session ID; the same string in all events of a session. JSON key "video_session_id".
#define JXVideoEvent_videoSessionID "JXVideoEvent.videoSessionID"
/// Sets `videoSessionID`; null removes the value.
static inline jx_status JXVideoEvent_setVideoSessionID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_videoSessionID, value);
}
/// Writes `videoSessionID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getVideoSessionID(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_videoSessionID, buffer, capacity, length);
}

/// The position of the playhead, in the unit of `totalLength`. JSON key "cursor_position".
#define JXVideoEvent_cursorPosition "JXVideoEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoEvent_setCursorPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoEvent_cursorPosition, number);
}
/// Sets `cursorPosition` from an integer.
static inline jx_status JXVideoEvent_setCursorPosition_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoEvent_cursorPosition, value);
}
/// Writes `cursorPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getCursorPosition(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoEvent_cursorPosition, buffer, capacity, length);
}

/// The length of the video, preferably in seconds; written unchanged. JSON key "total_length".
#define JXVideoEvent_totalLength "JXVideoEvent.totalLength"
/// Sets `totalLength` from a decimal string; null removes the value.
static inline jx_status JXVideoEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoEvent_totalLength, number);
}
/// Sets `totalLength` from an integer.
static inline jx_status JXVideoEvent_setTotalLength_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoEvent_totalLength, value);
}
/// Writes `totalLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getTotalLength(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoEvent_totalLength, buffer, capacity, length);
}

/// The title of the video. JSON key "video_title".
#define JXVideoEvent_videoTitle "JXVideoEvent.videoTitle"
/// Sets `videoTitle`; null removes the value.
static inline jx_status JXVideoEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_videoTitle, value);
}
/// Writes `videoTitle` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getVideoTitle(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_videoTitle, buffer, capacity, length);
}

/// The publisher of the video. JSON key "publisher".
#define JXVideoEvent_publisher "JXVideoEvent.publisher"
/// Sets `publisher`; null removes the value.
static inline jx_status JXVideoEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_publisher, value);
}
/// Writes `publisher` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getPublisher(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_publisher, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXVideoEvent_name "JXVideoEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXVideoEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getName(const jx_object* event, char* buffer, size_t capacity,
                                             size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXVideoEvent_pageType "JXVideoEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXVideoEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getPageType(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXVideoEvent_pageName "JXVideoEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXVideoEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoEvent_getPageName(const jx_object* event, char* buffer,
                                                 size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
