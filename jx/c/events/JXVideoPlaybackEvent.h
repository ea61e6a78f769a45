// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXVideoPlaybackEvent_H
#define JX_C_EVENTS_JXVideoPlaybackEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What the player does: start, pause, buffering, seeking, completion. It may span several assets
/// and pods, so those are lists. Takes the fields of JXVideoEvent too.
#define JXVideoPlaybackEvent_class "JXVideoPlaybackEvent"

/// What happened; the text is the event's name.
typedef enum JXVideoPlaybackEvent_Mode {
  JXVideoPlaybackEvent_Mode_START = 0,  ///< "video_start"
  JXVideoPlaybackEvent_Mode_PAUSE = 1,  ///< "video_pause"
  JXVideoPlaybackEvent_Mode_ERROR = 2,  ///< "video_error"
  JXVideoPlaybackEvent_Mode_BUFFER_START = 3,  ///< "video_buffer_start"
  JXVideoPlaybackEvent_Mode_BUFFER_COMPLETE = 4,  ///< "video_buffer_complete"
  JXVideoPlaybackEvent_Mode_SEEK_START = 5,  ///< "video_seek_start"
  JXVideoPlaybackEvent_Mode_SEEK_COMPLETE = 6,  ///< "video_seek_complete"
  JXVideoPlaybackEvent_Mode_RESUME = 7,  ///< "video_resume"
  JXVideoPlaybackEvent_Mode_COMPLETE = 8  ///< "video_complete"
} JXVideoPlaybackEvent_Mode;

/// A new one in `*event`, to be ended with `jx_object_free`. The mode chooses its name;
/// `session_id` may be null.
static inline jx_status JXVideoPlaybackEvent_create(
    JXVideoPlaybackEvent_Mode mode,
    const char* session_id,
    jx_object** event) {
  return jx_event_create_with_mode("JXVideoPlaybackEvent", mode, session_id, event);
}

/// `videoPlayer`, written as "video_player".
#define JXVideoPlaybackEvent_videoPlayer "JXVideoPlaybackEvent.videoPlayer"
/// Sets `videoPlayer`; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setVideoPlayer(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoPlayer, value);
}

/// `adtype`, written as "ad_type".
#define JXVideoPlaybackEvent_adtype "JXVideoPlaybackEvent.adtype"
/// Sets `adtype`; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setAdtype(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_adtype, value);
}

/// `imageQuality`, written as "image_quality".
#define JXVideoPlaybackEvent_imageQuality "JXVideoPlaybackEvent.imageQuality"
/// Sets `imageQuality`; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setImageQuality(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_imageQuality, value);
}

/// `interruptionMethod`, written as "interruption_method".
#define JXVideoPlaybackEvent_interruptionMethod "JXVideoPlaybackEvent.interruptionMethod"
/// Sets `interruptionMethod`; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setInterruptionMethod(
    jx_object* event,
    const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_interruptionMethod, value);
}

/// `videoCategory`, written as "video_category".
#define JXVideoPlaybackEvent_videoCategory "JXVideoPlaybackEvent.videoCategory"
/// Sets `videoCategory`; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoCategory, value);
}

/// `fullScreen`, written as "full_screen".
#define JXVideoPlaybackEvent_fullScreen "JXVideoPlaybackEvent.fullScreen"
/// Sets `fullScreen`.
static inline jx_status JXVideoPlaybackEvent_setFullScreen(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_fullScreen, value);
}

/// `adEnabled`, written as "ad_enabled".
#define JXVideoPlaybackEvent_adEnabled "JXVideoPlaybackEvent.adEnabled"
/// Sets `adEnabled`.
static inline jx_status JXVideoPlaybackEvent_setAdEnabled(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_adEnabled, value);
}

/// `livestream`, written as "livestream".
#define JXVideoPlaybackEvent_livestream "JXVideoPlaybackEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoPlaybackEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_livestream, value);
}

/// `contentAssetID`, written as "content_asset_id".
#define JXVideoPlaybackEvent_contentAssetID "JXVideoPlaybackEvent.contentAssetID"
/// Sets `contentAssetID`, a JSON array; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setContentAssetID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_contentAssetID, json);
}

/// `contentPodID`, written as "content_pod_id".
#define JXVideoPlaybackEvent_contentPodID "JXVideoPlaybackEvent.contentPodID"
/// Sets `contentPodID`, a JSON array; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setContentPodID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_contentPodID, json);
}

/// `adAssetID`, written as "ad_asset_id".
#define JXVideoPlaybackEvent_adAssetID "JXVideoPlaybackEvent.adAssetID"
/// Sets `adAssetID`, a JSON array; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setAdAssetID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_adAssetID, json);
}

/// `adPodID`, written as "ad_pod_id".
#define JXVideoPlaybackEvent_adPodID "JXVideoPlaybackEvent.adPodID"
/// Sets `adPodID`, a JSON array; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setAdPodID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_adPodID, json);
}

/// `seekPosition`, written as "seek_position".
#define JXVideoPlaybackEvent_seekPosition "JXVideoPlaybackEvent.seekPosition"
/// Sets `seekPosition` from a decimal text; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setSeekPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_seekPosition, number);
}
/// Sets `seekPosition`.
static inline jx_status JXVideoPlaybackEvent_setSeekPosition_integer(
    jx_object* event,
    int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_seekPosition, value);
}

/// `bitrate`, written as "bitrate".
#define JXVideoPlaybackEvent_bitrate "JXVideoPlaybackEvent.bitrate"
/// Sets `bitrate` from a decimal text; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_bitrate, number);
}
/// Sets `bitrate`.
static inline jx_status JXVideoPlaybackEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_bitrate, value);
}

/// `framerate`, written as "framerate".
#define JXVideoPlaybackEvent_framerate "JXVideoPlaybackEvent.framerate"
/// Sets `framerate` from a decimal text; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_framerate, number);
}
/// Sets `framerate`.
static inline jx_status JXVideoPlaybackEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_framerate, value);
}

/// `sound`, written as "sound".
#define JXVideoPlaybackEvent_sound "JXVideoPlaybackEvent.sound"
/// Sets `sound` from a decimal text; null makes it absent.
static inline jx_status JXVideoPlaybackEvent_setSound(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_sound, number);
}
/// Sets `sound`.
static inline jx_status JXVideoPlaybackEvent_setSound_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_sound, value);
}

#ifdef __cplusplus
}
#endif

#endif
