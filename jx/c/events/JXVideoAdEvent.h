// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXVideoAdEvent_H
#define JX_C_EVENTS_JXVideoAdEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What happens to an advertisement or a break. Its types are always written: "pre-roll" and
/// "dynamic" when they were never set. Takes the fields of JXVideoEvent too.
#define JXVideoAdEvent_class "JXVideoAdEvent"

/// What happened; the text is the event's name.
typedef enum JXVideoAdEvent_Mode {
  JXVideoAdEvent_Mode_START = 0,  ///< "video_ad_start"
  JXVideoAdEvent_Mode_PLAYING = 1,  ///< "video_ad_playing"
  JXVideoAdEvent_Mode_STOP = 2,  ///< "video_ad_stop"
  JXVideoAdEvent_Mode_COMPLETE = 3,  ///< "video_ad_complete"
  JXVideoAdEvent_Mode_SKIP = 4,  ///< "video_ad_skip"
  JXVideoAdEvent_Mode_BREAK_START = 5,  ///< "video_ad_break_start"
  JXVideoAdEvent_Mode_BREAK_COMPLETE = 6,  ///< "video_ad_break_complete"
  JXVideoAdEvent_Mode_CLICK = 7  ///< "video_ad_click"
} JXVideoAdEvent_Mode;

/// A new one in `*event`, to be ended with `jx_object_free`. The mode chooses its name;
/// `session_id` may be null.
static inline jx_status JXVideoAdEvent_create(
    JXVideoAdEvent_Mode mode,
    const char* session_id,
    jx_object** event) {
  return jx_event_create_with_mode("JXVideoAdEvent", mode, session_id, event);
}

/// `adAssetID`, written as "ad_asset_id".
#define JXVideoAdEvent_adAssetID "JXVideoAdEvent.adAssetID"
/// Sets `adAssetID`; null makes it absent.
static inline jx_status JXVideoAdEvent_setAdAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_adAssetID, value);
}

/// `adPodID`, written as "ad_pod_id".
#define JXVideoAdEvent_adPodID "JXVideoAdEvent.adPodID"
/// Sets `adPodID`; null makes it absent.
static inline jx_status JXVideoAdEvent_setAdPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoAdEvent_adPodID, value);
}

/// `podPosition`, written as "pod_position".
#define JXVideoAdEvent_podPosition "JXVideoAdEvent.podPosition"
/// Sets `podPosition` from a decimal text; null makes it absent.
static inline jx_status JXVideoAdEvent_setPodPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_podPosition, number);
}
/// Sets `podPosition`.
static inline jx_status JXVideoAdEvent_setPodPosition_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_podPosition, value);
}

/// `podLength`, written as "pod_length".
#define JXVideoAdEvent_podLength "JXVideoAdEvent.podLength"
/// Sets `podLength` from a decimal text; null makes it absent.
static inline jx_status JXVideoAdEvent_setPodLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_podLength, number);
}
/// Sets `podLength`.
static inline jx_status JXVideoAdEvent_setPodLength_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_podLength, value);
}

/// `adQuartile`, written as "ad_quartile".
#define JXVideoAdEvent_adQuartile "JXVideoAdEvent.adQuartile"
/// Sets `adQuartile` from a decimal text; null makes it absent.
static inline jx_status JXVideoAdEvent_setAdQuartile(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoAdEvent_adQuartile, number);
}
/// Sets `adQuartile`.
static inline jx_status JXVideoAdEvent_setAdQuartile_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoAdEvent_adQuartile, value);
}

/// Members of `adType`.
typedef enum JXVideoAdEvent_AdType {
  JXVideoAdEvent_AdType_PRE_ROLL = 0,  ///< "pre-roll"
  JXVideoAdEvent_AdType_MID_ROLL = 1,  ///< "mid-roll"
  JXVideoAdEvent_AdType_POST_ROLL = 2  ///< "post-roll"
} JXVideoAdEvent_AdType;

/// `adType`, written as "ad_type".
#define JXVideoAdEvent_adType "JXVideoAdEvent.adType"
/// Sets `adType`.
static inline jx_status JXVideoAdEvent_setAdType(jx_object* event, JXVideoAdEvent_AdType value) {
  return jx_object_set_enum(event, JXVideoAdEvent_adType, value);
}

/// Members of `loadType`.
typedef enum JXVideoAdEvent_LoadType {
  JXVideoAdEvent_LoadType_DYNAMIC = 0,  ///< "dynamic"
  JXVideoAdEvent_LoadType_LINEAR = 1  ///< "linear"
} JXVideoAdEvent_LoadType;

/// `loadType`, written as "load_type".
#define JXVideoAdEvent_loadType "JXVideoAdEvent.loadType"
/// Sets `loadType`.
static inline jx_status JXVideoAdEvent_setLoadType(
    jx_object* event,
    JXVideoAdEvent_LoadType value) {
  return jx_object_set_enum(event, JXVideoAdEvent_loadType, value);
}

#ifdef __cplusplus
}
#endif

#endif
