// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXVideoSettingEvent_H
#define JX_C_EVENTS_JXVideoSettingEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer changed the volume, the speed, the subtitles, the picture, or shared the video. Takes
/// the fields of JXVideoEvent too.
#define JXVideoSettingEvent_class "JXVideoSettingEvent"

/// What happened; the text is the event's name.
typedef enum JXVideoSettingEvent_Mode {
  JXVideoSettingEvent_Mode_VOLUME = 0,  ///< "video_volume"
  JXVideoSettingEvent_Mode_SPEED = 1,  ///< "video_speed"
  JXVideoSettingEvent_Mode_SUBTITLE_ON = 2,  ///< "video_subtitle_on"
  JXVideoSettingEvent_Mode_SUBTITLE_OFF = 3,  ///< "video_subtitle_off"
  JXVideoSettingEvent_Mode_FULLSCREEN_ON = 4,  ///< "video_fullscreen_on"
  JXVideoSettingEvent_Mode_FULLSCREEN_OFF = 5,  ///< "video_fullscreen_off"
  JXVideoSettingEvent_Mode_QUALITY = 6,  ///< "video_quality"
  JXVideoSettingEvent_Mode_SHARE = 7  ///< "video_share"
} JXVideoSettingEvent_Mode;

/// A new one in `*event`, to be ended with `jx_object_free`. The mode chooses its name;
/// `session_id` may be null.
static inline jx_status JXVideoSettingEvent_create(
    JXVideoSettingEvent_Mode mode,
    const char* session_id,
    jx_object** event) {
  return jx_event_create_with_mode("JXVideoSettingEvent", mode, session_id, event);
}

/// `contentPodID`, written as "content_pod_id".
#define JXVideoSettingEvent_contentPodID "JXVideoSettingEvent.contentPodID"
/// Sets `contentPodID`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setContentPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_contentPodID, value);
}

/// `contentAssetID`, written as "content_asset_id".
#define JXVideoSettingEvent_contentAssetID "JXVideoSettingEvent.contentAssetID"
/// Sets `contentAssetID`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setContentAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_contentAssetID, value);
}

/// `adAssetID`, written as "ad_asset_id".
#define JXVideoSettingEvent_adAssetID "JXVideoSettingEvent.adAssetID"
/// Sets `adAssetID`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setAdAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adAssetID, value);
}

/// `adPodID`, written as "ad_pod_id".
#define JXVideoSettingEvent_adPodID "JXVideoSettingEvent.adPodID"
/// Sets `adPodID`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setAdPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adPodID, value);
}

/// `adType`, written as "ad_type".
#define JXVideoSettingEvent_adType "JXVideoSettingEvent.adType"
/// Sets `adType`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setAdType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adType, value);
}

/// `videoDescription`, written as "video_description".
#define JXVideoSettingEvent_videoDescription "JXVideoSettingEvent.videoDescription"
/// Sets `videoDescription`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setVideoDescription(
    jx_object* event,
    const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoDescription, value);
}

/// `season`, written as "season".
#define JXVideoSettingEvent_season "JXVideoSettingEvent.season"
/// Sets `season`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setSeason(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_season, value);
}

/// `episode`, written as "episode".
#define JXVideoSettingEvent_episode "JXVideoSettingEvent.episode"
/// Sets `episode`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setEpisode(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_episode, value);
}

/// `videoCategory`, written as "video_category".
#define JXVideoSettingEvent_videoCategory "JXVideoSettingEvent.videoCategory"
/// Sets `videoCategory`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoCategory, value);
}

/// `program`, written as "program".
#define JXVideoSettingEvent_program "JXVideoSettingEvent.program"
/// Sets `program`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setProgram(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_program, value);
}

/// `channel`, written as "channel".
#define JXVideoSettingEvent_channel "JXVideoSettingEvent.channel"
/// Sets `channel`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setChannel(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_channel, value);
}

/// `airdate`, written as "airdate".
#define JXVideoSettingEvent_airdate "JXVideoSettingEvent.airdate"
/// Sets `airdate`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setAirdate(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_airdate, value);
}

/// `imageQuality`, written as "image_quality".
#define JXVideoSettingEvent_imageQuality "JXVideoSettingEvent.imageQuality"
/// Sets `imageQuality`; null makes it absent.
static inline jx_status JXVideoSettingEvent_setImageQuality(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_imageQuality, value);
}

/// `keywords`, written as "keywords".
#define JXVideoSettingEvent_keywords "JXVideoSettingEvent.keywords"
/// Sets `keywords`, a JSON array; null makes it absent.
static inline jx_status JXVideoSettingEvent_setKeywords(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoSettingEvent_keywords, json);
}

/// `fullScreen`, written as "full_screen".
#define JXVideoSettingEvent_fullScreen "JXVideoSettingEvent.fullScreen"
/// Sets `fullScreen`.
static inline jx_status JXVideoSettingEvent_setFullScreen(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_fullScreen, value);
}

/// `fullEpisode`, written as "full_episode".
#define JXVideoSettingEvent_fullEpisode "JXVideoSettingEvent.fullEpisode"
/// Sets `fullEpisode`.
static inline jx_status JXVideoSettingEvent_setFullEpisode(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_fullEpisode, value);
}

/// `adEnabled`, written as "ad_enabled".
#define JXVideoSettingEvent_adEnabled "JXVideoSettingEvent.adEnabled"
/// Sets `adEnabled`.
static inline jx_status JXVideoSettingEvent_setAdEnabled(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_adEnabled, value);
}

/// `livestream`, written as "livestream".
#define JXVideoSettingEvent_livestream "JXVideoSettingEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoSettingEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_livestream, value);
}

/// `bitrate`, written as "bitrate".
#define JXVideoSettingEvent_bitrate "JXVideoSettingEvent.bitrate"
/// Sets `bitrate` from a decimal text; null makes it absent.
static inline jx_status JXVideoSettingEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_bitrate, number);
}
/// Sets `bitrate`.
static inline jx_status JXVideoSettingEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_bitrate, value);
}

/// `framerate`, written as "framerate".
#define JXVideoSettingEvent_framerate "JXVideoSettingEvent.framerate"
/// Sets `framerate` from a decimal text; null makes it absent.
static inline jx_status JXVideoSettingEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_framerate, number);
}
/// Sets `framerate`.
static inline jx_status JXVideoSettingEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_framerate, value);
}

/// `sound`, written as "sound".
#define JXVideoSettingEvent_sound "JXVideoSettingEvent.sound"
/// Sets `sound` from a decimal text; null makes it absent.
static inline jx_status JXVideoSettingEvent_setSound(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_sound, number);
}
/// Sets `sound`.
static inline jx_status JXVideoSettingEvent_setSound_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_sound, value);
}

#ifdef __cplusplus
}
#endif

#endif
