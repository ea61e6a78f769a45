// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIDEOADEVENT_H
#define JX_C_EVENTS_JXVIDEOADEVENT_H

#include "jx/c/events/jx_names.h"
#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A change in an advertisement or ad break: start, progress, stop, completion, skip or click. The
/// ad type and load type are always written, by default as "pre-roll" and "dynamic"; only a value
/// outside its enumeration is not written. Includes the fields of JXVideoEvent and JXEvent.
#define JXVideoAdEvent_class "JXVideoAdEvent"

/// Creates an event in `*event`; free it with `jx_object_free`. `mode` determines its name;
/// `session_id` may be null.
static inline jx_status JXVideoAdEvent_create(EJXVideoAdMode mode, const char* session_id,
                                              jx_object** event) {
  return jx_event_create_with_mode("JXVideoAdEvent", mode, session_id, event);
}

/// The identifier of the advertisement. JSON key "ad_asset_id".
#define JXVideoAdEvent_adAssetID "JXVideoAdEvent.adAssetID"
/// Sets `adAssetID`; null removes the value.
static inline jx_status JXVideoAdEvent_setAdAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_adAssetID, value);
}
/// Writes `adAssetID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getAdAssetID(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_adAssetID, buffer, capacity, length);
}

/// The identifier of the ad pod, the break that contains the advertisement. JSON key "ad_pod_id".
#define JXVideoAdEvent_adPodID "JXVideoAdEvent.adPodID"
/// Sets `adPodID`; null removes the value.
static inline jx_status JXVideoAdEvent_setAdPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_adPodID, value);
}
/// Writes `adPodID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getAdPodID(const jx_object* event, char* buffer,
                                                  size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_adPodID, buffer, capacity, length);
}

/// The position of the advertisement in its break. JSON key "pod_position".
#define JXVideoAdEvent_podPosition "JXVideoAdEvent.podPosition"
/// Sets `podPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoAdEvent_setPodPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_podPosition, number);
}
/// Sets `podPosition` from an integer.
static inline jx_status JXVideoAdEvent_setPodPosition_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_podPosition, value);
}
/// Writes `podPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getPodPosition(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoAdEvent_podPosition, buffer, capacity, length);
}

/// The length of the break, in the unit that the application chooses. JSON key "pod_length".
#define JXVideoAdEvent_podLength "JXVideoAdEvent.podLength"
/// Sets `podLength` from a decimal string; null removes the value.
static inline jx_status JXVideoAdEvent_setPodLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_podLength, number);
}
/// Sets `podLength` from an integer.
static inline jx_status JXVideoAdEvent_setPodLength_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_podLength, value);
}
/// Writes `podLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getPodLength(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoAdEvent_podLength, buffer, capacity, length);
}

/// The quarter of the advertisement that was reached, from 1 to 4. The range is not validated. JSON
/// key "ad_quartile".
#define JXVideoAdEvent_adQuartile "JXVideoAdEvent.adQuartile"
/// Sets `adQuartile` from a decimal string; null removes the value.
static inline jx_status JXVideoAdEvent_setAdQuartile(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_adQuartile, number);
}
/// Sets `adQuartile` from an integer.
static inline jx_status JXVideoAdEvent_setAdQuartile_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_adQuartile, value);
}
/// Writes `adQuartile` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getAdQuartile(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoAdEvent_adQuartile, buffer, capacity, length);
}

/// The type of the advertisement. A value outside the enumeration is stored but not written. JSON
/// key "ad_type".
#define JXVideoAdEvent_adType "JXVideoAdEvent.adType"
/// Sets `adType`.
static inline jx_status JXVideoAdEvent_setAdType(jx_object* event, EJXAdType value) {
  return jx_object_set_enum(event, JXVideoAdEvent_adType, value);
}
/// Writes `adType`, an EJXAdType, to `*value`.
static inline jx_status JXVideoAdEvent_getAdType(const jx_object* event, uint32_t* value) {
  return jx_object_get_enum(event, JXVideoAdEvent_adType, value);
}

/// The load type of the advertisement. A value outside the enumeration is stored but not written.
/// JSON key "load_type".
#define JXVideoAdEvent_loadType "JXVideoAdEvent.loadType"
/// Sets `loadType`.
static inline jx_status JXVideoAdEvent_setLoadType(jx_object* event, EJXAdLoadType value) {
  return jx_object_set_enum(event, JXVideoAdEvent_loadType, value);
}
/// Writes `loadType`, an EJXAdLoadType, to `*value`.
static inline jx_status JXVideoAdEvent_getLoadType(const jx_object* event, uint32_t* value) {
  return jx_object_get_enum(event, JXVideoAdEvent_loadType, value);
}

/// The video session ID; the same string in all events of a session. JSON key "video_session_id".
#define JXVideoAdEvent_videoSessionID "JXVideoAdEvent.videoSessionID"
/// Sets `videoSessionID`; null removes the value.
static inline jx_status JXVideoAdEvent_setVideoSessionID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_videoSessionID, value);
}
/// Writes `videoSessionID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getVideoSessionID(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_videoSessionID, buffer, capacity, length);
}

/// The position of the playhead, in the unit of `totalLength`. JSON key "cursor_position".
#define JXVideoAdEvent_cursorPosition "JXVideoAdEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoAdEvent_setCursorPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_cursorPosition, number);
}
/// Sets `cursorPosition` from an integer.
static inline jx_status JXVideoAdEvent_setCursorPosition_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_cursorPosition, value);
}
/// Writes `cursorPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getCursorPosition(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoAdEvent_cursorPosition, buffer, capacity, length);
}

/// The length of the video, preferably in seconds; written unchanged. JSON key "total_length".
#define JXVideoAdEvent_totalLength "JXVideoAdEvent.totalLength"
/// Sets `totalLength` from a decimal string; null removes the value.
static inline jx_status JXVideoAdEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_totalLength, number);
}
/// Sets `totalLength` from an integer.
static inline jx_status JXVideoAdEvent_setTotalLength_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_totalLength, value);
}
/// Writes `totalLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getTotalLength(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoAdEvent_totalLength, buffer, capacity, length);
}

/// The title of the video. JSON key "video_title".
#define JXVideoAdEvent_videoTitle "JXVideoAdEvent.videoTitle"
/// Sets `videoTitle`; null removes the value.
static inline jx_status JXVideoAdEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_videoTitle, value);
}
/// Writes `videoTitle` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getVideoTitle(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_videoTitle, buffer, capacity, length);
}

/// The publisher of the video. JSON key "publisher".
#define JXVideoAdEvent_publisher "JXVideoAdEvent.publisher"
/// Sets `publisher`; null removes the value.
static inline jx_status JXVideoAdEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_publisher, value);
}
/// Writes `publisher` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getPublisher(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_publisher, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXVideoAdEvent_name "JXVideoAdEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXVideoAdEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getName(const jx_object* event, char* buffer,
                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXVideoAdEvent_pageType "JXVideoAdEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXVideoAdEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getPageType(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXVideoAdEvent_pageName "JXVideoAdEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXVideoAdEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoAdEvent_getPageName(const jx_object* event, char* buffer,
                                                   size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoAdEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
