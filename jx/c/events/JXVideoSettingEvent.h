// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIDEOSETTINGEVENT_H
#define JX_C_EVENTS_JXVIDEOSETTINGEVENT_H

#include "jx/c/events/jx_names.h"
#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The viewer changed the volume, speed, subtitles, full-screen mode or quality, or shared the
/// video. Includes the fields of JXVideoEvent and JXEvent.
#define JXVideoSettingEvent_class "JXVideoSettingEvent"

/// Creates an event in `*event`; free it with `jx_object_free`. `mode` determines its name;
/// `session_id` may be null.
static inline jx_status JXVideoSettingEvent_create(EJXVideoSettingMode mode, const char* session_id,
                                                   jx_object** event) {
  return jx_event_create_with_mode("JXVideoSettingEvent", mode, session_id, event);
}

/// The identifier of the content pod, a part of the content. JSON key "content_pod_id".
#define JXVideoSettingEvent_contentPodID "JXVideoSettingEvent.contentPodID"
/// Sets `contentPodID`; null removes the value.
static inline jx_status JXVideoSettingEvent_setContentPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_contentPodID, value);
}
/// Writes `contentPodID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getContentPodID(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_contentPodID, buffer, capacity, length);
}

/// The identifier of the content. JSON key "content_asset_id".
#define JXVideoSettingEvent_contentAssetID "JXVideoSettingEvent.contentAssetID"
/// Sets `contentAssetID`; null removes the value.
static inline jx_status JXVideoSettingEvent_setContentAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_contentAssetID, value);
}
/// Writes `contentAssetID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getContentAssetID(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_contentAssetID, buffer, capacity, length);
}

/// The identifier of the advertisement. JSON key "ad_asset_id".
#define JXVideoSettingEvent_adAssetID "JXVideoSettingEvent.adAssetID"
/// Sets `adAssetID`; null removes the value.
static inline jx_status JXVideoSettingEvent_setAdAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adAssetID, value);
}
/// Writes `adAssetID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getAdAssetID(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_adAssetID, buffer, capacity, length);
}

/// The identifier of the ad pod, the break that contains the advertisement. JSON key "ad_pod_id".
#define JXVideoSettingEvent_adPodID "JXVideoSettingEvent.adPodID"
/// Sets `adPodID`; null removes the value.
static inline jx_status JXVideoSettingEvent_setAdPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adPodID, value);
}
/// Writes `adPodID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getAdPodID(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_adPodID, buffer, capacity, length);
}

/// The type of the advertisement, a free-form string. JSON key "ad_type".
#define JXVideoSettingEvent_adType "JXVideoSettingEvent.adType"
/// Sets `adType`; null removes the value.
static inline jx_status JXVideoSettingEvent_setAdType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_adType, value);
}
/// Writes `adType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getAdType(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_adType, buffer, capacity, length);
}

/// A description of the video. JSON key "video_description".
#define JXVideoSettingEvent_videoDescription "JXVideoSettingEvent.videoDescription"
/// Sets `videoDescription`; null removes the value.
static inline jx_status JXVideoSettingEvent_setVideoDescription(jx_object* event,
                                                                const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoDescription, value);
}
/// Writes `videoDescription` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getVideoDescription(const jx_object* event,
                                                                char* buffer, size_t capacity,
                                                                size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_videoDescription, buffer, capacity,
                              length);
}

/// The season, as the application names it. JSON key "season".
#define JXVideoSettingEvent_season "JXVideoSettingEvent.season"
/// Sets `season`; null removes the value.
static inline jx_status JXVideoSettingEvent_setSeason(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_season, value);
}
/// Writes `season` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getSeason(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_season, buffer, capacity, length);
}

/// The episode, as the application names it. JSON key "episode".
#define JXVideoSettingEvent_episode "JXVideoSettingEvent.episode"
/// Sets `episode`; null removes the value.
static inline jx_status JXVideoSettingEvent_setEpisode(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_episode, value);
}
/// Writes `episode` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getEpisode(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_episode, buffer, capacity, length);
}

/// The category of the video, a free-form string. JSON key "video_category".
#define JXVideoSettingEvent_videoCategory "JXVideoSettingEvent.videoCategory"
/// Sets `videoCategory`; null removes the value.
static inline jx_status JXVideoSettingEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoCategory, value);
}
/// Writes `videoCategory` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getVideoCategory(const jx_object* event, char* buffer,
                                                             size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_videoCategory, buffer, capacity, length);
}

/// The program that the video belongs to. JSON key "program".
#define JXVideoSettingEvent_program "JXVideoSettingEvent.program"
/// Sets `program`; null removes the value.
static inline jx_status JXVideoSettingEvent_setProgram(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_program, value);
}
/// Writes `program` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getProgram(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_program, buffer, capacity, length);
}

/// The channel that shows the video. JSON key "channel".
#define JXVideoSettingEvent_channel "JXVideoSettingEvent.channel"
/// Sets `channel`; null removes the value.
static inline jx_status JXVideoSettingEvent_setChannel(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_channel, value);
}
/// Writes `channel` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getChannel(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_channel, buffer, capacity, length);
}

/// The date of the first broadcast, a string in the format that the application chooses. JSON key
/// "airdate".
#define JXVideoSettingEvent_airdate "JXVideoSettingEvent.airdate"
/// Sets `airdate`; null removes the value.
static inline jx_status JXVideoSettingEvent_setAirdate(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_airdate, value);
}
/// Writes `airdate` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getAirdate(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_airdate, buffer, capacity, length);
}

/// The image quality, a free-form string such as "2160p". JSON key "image_quality".
#define JXVideoSettingEvent_imageQuality "JXVideoSettingEvent.imageQuality"
/// Sets `imageQuality`; null removes the value.
static inline jx_status JXVideoSettingEvent_setImageQuality(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_imageQuality, value);
}
/// Writes `imageQuality` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getImageQuality(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_imageQuality, buffer, capacity, length);
}

/// The event's keywords, initially an empty list; callers may append to it. A null list is not
/// written. JSON key "keywords".
#define JXVideoSettingEvent_keywords "JXVideoSettingEvent.keywords"
/// Sets `keywords` from a JSON array; null removes the value.
static inline jx_status JXVideoSettingEvent_setKeywords(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoSettingEvent_keywords, json);
}
/// Appends a string to `keywords`.
static inline jx_status JXVideoSettingEvent_keywords_append_string(jx_object* event,
                                                                   const char* value) {
  return jx_object_list_insert_string(event, JXVideoSettingEvent_keywords, JX_LIST_END, value);
}
/// Appends a number to `keywords`.
static inline jx_status JXVideoSettingEvent_keywords_append_number(jx_object* event,
                                                                   const char* number) {
  return jx_object_list_insert_number(event, JXVideoSettingEvent_keywords, JX_LIST_END, number);
}
/// Appends a Boolean to `keywords`.
static inline jx_status JXVideoSettingEvent_keywords_append_boolean(jx_object* event, bool value) {
  return jx_object_list_insert_boolean(event, JXVideoSettingEvent_keywords, JX_LIST_END, value);
}
/// Writes `keywords` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getKeywords(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoSettingEvent_keywords, buffer, capacity, length);
}
/// Writes the number of elements of `keywords`.
static inline jx_status JXVideoSettingEvent_keywords_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXVideoSettingEvent_keywords, count);
}
/// Sets `keywords` to an empty list.
static inline jx_status JXVideoSettingEvent_keywords_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoSettingEvent_keywords);
}

/// True if the video fills the screen. Always written. JSON key "full_screen".
#define JXVideoSettingEvent_fullScreen "JXVideoSettingEvent.fullScreen"
/// Sets `fullScreen`.
static inline jx_status JXVideoSettingEvent_setFullScreen(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_fullScreen, value);
}
/// Writes `fullScreen` to `*value`.
static inline jx_status JXVideoSettingEvent_getFullScreen(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoSettingEvent_fullScreen, value);
}

/// True if the video is a full episode, not a part of it. Always written. JSON key "full_episode".
#define JXVideoSettingEvent_fullEpisode "JXVideoSettingEvent.fullEpisode"
/// Sets `fullEpisode`.
static inline jx_status JXVideoSettingEvent_setFullEpisode(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_fullEpisode, value);
}
/// Writes `fullEpisode` to `*value`.
static inline jx_status JXVideoSettingEvent_getFullEpisode(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoSettingEvent_fullEpisode, value);
}

/// True if advertisements are enabled. Always written. JSON key "ad_enabled".
#define JXVideoSettingEvent_adEnabled "JXVideoSettingEvent.adEnabled"
/// Sets `adEnabled`.
static inline jx_status JXVideoSettingEvent_setAdEnabled(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_adEnabled, value);
}
/// Writes `adEnabled` to `*value`.
static inline jx_status JXVideoSettingEvent_getAdEnabled(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoSettingEvent_adEnabled, value);
}

/// True if the video is live. Always written. JSON key "livestream".
#define JXVideoSettingEvent_livestream "JXVideoSettingEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoSettingEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoSettingEvent_livestream, value);
}
/// Writes `livestream` to `*value`.
static inline jx_status JXVideoSettingEvent_getLivestream(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoSettingEvent_livestream, value);
}

/// The bit rate, in the unit that the application uses for all events; written unchanged. JSON key
/// "bitrate".
#define JXVideoSettingEvent_bitrate "JXVideoSettingEvent.bitrate"
/// Sets `bitrate` from a decimal string; null removes the value.
static inline jx_status JXVideoSettingEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_bitrate, number);
}
/// Sets `bitrate` from an integer.
static inline jx_status JXVideoSettingEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_bitrate, value);
}
/// Writes `bitrate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getBitrate(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoSettingEvent_bitrate, buffer, capacity, length);
}

/// The frame rate, in frames per second. JSON key "framerate".
#define JXVideoSettingEvent_framerate "JXVideoSettingEvent.framerate"
/// Sets `framerate` from a decimal string; null removes the value.
static inline jx_status JXVideoSettingEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_framerate, number);
}
/// Sets `framerate` from an integer.
static inline jx_status JXVideoSettingEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_framerate, value);
}
/// Writes `framerate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getFramerate(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoSettingEvent_framerate, buffer, capacity, length);
}

/// The volume, on the scale that the application uses for all events. JSON key "sound".
#define JXVideoSettingEvent_sound "JXVideoSettingEvent.sound"
/// Sets `sound` from a decimal string; null removes the value.
static inline jx_status JXVideoSettingEvent_setSound(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_sound, number);
}
/// Sets `sound` from an integer.
static inline jx_status JXVideoSettingEvent_setSound_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_sound, value);
}
/// Writes `sound` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getSound(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoSettingEvent_sound, buffer, capacity, length);
}

/// The video session ID; the same string in all events of a session. JSON key "video_session_id".
#define JXVideoSettingEvent_videoSessionID "JXVideoSettingEvent.videoSessionID"
/// Sets `videoSessionID`; null removes the value.
static inline jx_status JXVideoSettingEvent_setVideoSessionID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoSessionID, value);
}
/// Writes `videoSessionID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getVideoSessionID(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_videoSessionID, buffer, capacity, length);
}

/// The position of the playhead, in the unit of `totalLength`. JSON key "cursor_position".
#define JXVideoSettingEvent_cursorPosition "JXVideoSettingEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoSettingEvent_setCursorPosition(jx_object* event,
                                                              const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_cursorPosition, number);
}
/// Sets `cursorPosition` from an integer.
static inline jx_status JXVideoSettingEvent_setCursorPosition_integer(jx_object* event,
                                                                      int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_cursorPosition, value);
}
/// Writes `cursorPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getCursorPosition(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoSettingEvent_cursorPosition, buffer, capacity, length);
}

/// The length of the video, preferably in seconds; written unchanged. JSON key "total_length".
#define JXVideoSettingEvent_totalLength "JXVideoSettingEvent.totalLength"
/// Sets `totalLength` from a decimal string; null removes the value.
static inline jx_status JXVideoSettingEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoSettingEvent_totalLength, number);
}
/// Sets `totalLength` from an integer.
static inline jx_status JXVideoSettingEvent_setTotalLength_integer(jx_object* event,
                                                                   int64_t value) {
  return jx_object_set_integer(event, JXVideoSettingEvent_totalLength, value);
}
/// Writes `totalLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getTotalLength(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoSettingEvent_totalLength, buffer, capacity, length);
}

/// The title of the video. JSON key "video_title".
#define JXVideoSettingEvent_videoTitle "JXVideoSettingEvent.videoTitle"
/// Sets `videoTitle`; null removes the value.
static inline jx_status JXVideoSettingEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_videoTitle, value);
}
/// Writes `videoTitle` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getVideoTitle(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_videoTitle, buffer, capacity, length);
}

/// The publisher of the video. JSON key "publisher".
#define JXVideoSettingEvent_publisher "JXVideoSettingEvent.publisher"
/// Sets `publisher`; null removes the value.
static inline jx_status JXVideoSettingEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_publisher, value);
}
/// Writes `publisher` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getPublisher(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_publisher, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXVideoSettingEvent_name "JXVideoSettingEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXVideoSettingEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXVideoSettingEvent_pageType "JXVideoSettingEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXVideoSettingEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getPageType(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXVideoSettingEvent_pageName "JXVideoSettingEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXVideoSettingEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoSettingEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoSettingEvent_getPageName(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoSettingEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
