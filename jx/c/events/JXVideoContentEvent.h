// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXVideoContentEvent_H
#define JX_C_EVENTS_JXVideoContentEvent_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// How far the content has come. Takes the fields of JXVideoEvent too.
#define JXVideoContentEvent_class "JXVideoContentEvent"

/// What happened; the text is the event's name.
typedef enum JXVideoContentEvent_Mode {
  JXVideoContentEvent_Mode_START = 0,  ///< "video_content_start"
  JXVideoContentEvent_Mode_PLAYING = 1,  ///< "video_content_playing"
  JXVideoContentEvent_Mode_QUARTER_REACHED = 2,  ///< "video_content_quarter_reached"
  JXVideoContentEvent_Mode_COMPLETE = 3  ///< "video_content_complete"
} JXVideoContentEvent_Mode;

/// A new one in `*event`, to be ended with `jx_object_free`. The mode chooses its name;
/// `session_id` may be null.
static inline jx_status JXVideoContentEvent_create(
    JXVideoContentEvent_Mode mode,
    const char* session_id,
    jx_object** event) {
  return jx_event_create_with_mode("JXVideoContentEvent", mode, session_id, event);
}

/// `contentPodID`, written as "content_pod_id".
#define JXVideoContentEvent_contentPodID "JXVideoContentEvent.contentPodID"
/// Sets `contentPodID`; null makes it absent.
static inline jx_status JXVideoContentEvent_setContentPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_contentPodID, value);
}

/// `videoDescription`, written as "video_description".
#define JXVideoContentEvent_videoDescription "JXVideoContentEvent.videoDescription"
/// Sets `videoDescription`; null makes it absent.
static inline jx_status JXVideoContentEvent_setVideoDescription(
    jx_object* event,
    const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoDescription, value);
}

/// `season`, written as "season".
#define JXVideoContentEvent_season "JXVideoContentEvent.season"
/// Sets `season`; null makes it absent.
static inline jx_status JXVideoContentEvent_setSeason(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_season, value);
}

/// `episode`, written as "episode".
#define JXVideoContentEvent_episode "JXVideoContentEvent.episode"
/// Sets `episode`; null makes it absent.
static inline jx_status JXVideoContentEvent_setEpisode(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_episode, value);
}

/// `program`, written as "program".
#define JXVideoContentEvent_program "JXVideoContentEvent.program"
/// Sets `program`; null makes it absent.
static inline jx_status JXVideoContentEvent_setProgram(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_program, value);
}

/// `channel`, written as "channel".
#define JXVideoContentEvent_channel "JXVideoContentEvent.channel"
/// Sets `channel`; null makes it absent.
static inline jx_status JXVideoContentEvent_setChannel(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_channel, value);
}

/// `contentAssetID`, written as "content_asset_id".
#define JXVideoContentEvent_contentAssetID "JXVideoContentEvent.contentAssetID"
/// Sets `contentAssetID`; null makes it absent.
static inline jx_status JXVideoContentEvent_setContentAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_contentAssetID, value);
}

/// `videoCategory`, written as "video_category".
#define JXVideoContentEvent_videoCategory "JXVideoContentEvent.videoCategory"
/// Sets `videoCategory`; null makes it absent.
static inline jx_status JXVideoContentEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoCategory, value);
}

/// `airDate`, written as "airdate".
#define JXVideoContentEvent_airDate "JXVideoContentEvent.airDate"
/// Sets `airDate`; null makes it absent.
static inline jx_status JXVideoContentEvent_setAirDate(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_airDate, value);
}

/// `keywords`, written as "keywords".
#define JXVideoContentEvent_keywords "JXVideoContentEvent.keywords"
/// Sets `keywords`, a JSON array; null makes it absent.
static inline jx_status JXVideoContentEvent_setKeywords(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoContentEvent_keywords, json);
}

/// `fullEpisode`, written as "full_episode".
#define JXVideoContentEvent_fullEpisode "JXVideoContentEvent.fullEpisode"
/// Sets `fullEpisode`.
static inline jx_status JXVideoContentEvent_setFullEpisode(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoContentEvent_fullEpisode, value);
}

/// `livestream`, written as "livestream".
#define JXVideoContentEvent_livestream "JXVideoContentEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoContentEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoContentEvent_livestream, value);
}

/// `bitrate`, written as "bitrate".
#define JXVideoContentEvent_bitrate "JXVideoContentEvent.bitrate"
/// Sets `bitrate` from a decimal text; null makes it absent.
static inline jx_status JXVideoContentEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_bitrate, number);
}
/// Sets `bitrate`.
static inline jx_status JXVideoContentEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_bitrate, value);
}

/// `framerate`, written as "framerate".
#define JXVideoContentEvent_framerate "JXVideoContentEvent.framerate"
/// Sets `framerate` from a decimal text; null makes it absent.
static inline jx_status JXVideoContentEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_framerate, number);
}
/// Sets `framerate`.
static inline jx_status JXVideoContentEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_framerate, value);
}

/// `totalLength`, written as "total_length".
#define JXVideoContentEvent_totalLength "JXVideoContentEvent.totalLength"
/// Sets `totalLength` from a decimal text; null makes it absent.
static inline jx_status JXVideoContentEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_totalLength, number);
}
/// Sets `totalLength`.
static inline jx_status JXVideoContentEvent_setTotalLength_integer(
    jx_object* event,
    int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_totalLength, value);
}

#ifdef __cplusplus
}
#endif

#endif
