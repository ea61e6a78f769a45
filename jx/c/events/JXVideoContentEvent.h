// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIDEOCONTENTEVENT_H
#define JX_C_EVENTS_JXVIDEOCONTENTEVENT_H

#include "jx/c/events/jx_names.h"
#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The progress of the content: start, playback, a quarter reached, completion. `totalLength` is
/// written once, with the fields of JXVideoEvent. Includes the fields of JXVideoEvent and JXEvent.
#define JXVideoContentEvent_class "JXVideoContentEvent"

/// Creates an event in `*event`; free it with `jx_object_free`. `mode` determines its name;
/// `session_id` may be null.
static inline jx_status JXVideoContentEvent_create(EJXVideoContentMode mode, const char* session_id,
                                                   jx_object** event) {
  return jx_event_create_with_mode("JXVideoContentEvent", mode, session_id, event);
}

/// The identifier of the content pod, a part of the content. JSON key "content_pod_id".
#define JXVideoContentEvent_contentPodID "JXVideoContentEvent.contentPodID"
/// Sets `contentPodID`; null removes the value.
static inline jx_status JXVideoContentEvent_setContentPodID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_contentPodID, value);
}
/// Writes `contentPodID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getContentPodID(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_contentPodID, buffer, capacity, length);
}

/// A description of the video. JSON key "video_description".
#define JXVideoContentEvent_videoDescription "JXVideoContentEvent.videoDescription"
/// Sets `videoDescription`; null removes the value.
static inline jx_status JXVideoContentEvent_setVideoDescription(jx_object* event,
                                                                const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoDescription, value);
}
/// Writes `videoDescription` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getVideoDescription(const jx_object* event,
                                                                char* buffer, size_t capacity,
                                                                size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_videoDescription, buffer, capacity,
                              length);
}

/// The season, as the application names it. JSON key "season".
#define JXVideoContentEvent_season "JXVideoContentEvent.season"
/// Sets `season`; null removes the value.
static inline jx_status JXVideoContentEvent_setSeason(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_season, value);
}
/// Writes `season` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getSeason(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_season, buffer, capacity, length);
}

/// The episode, as the application names it. JSON key "episode".
#define JXVideoContentEvent_episode "JXVideoContentEvent.episode"
/// Sets `episode`; null removes the value.
static inline jx_status JXVideoContentEvent_setEpisode(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_episode, value);
}
/// Writes `episode` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getEpisode(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_episode, buffer, capacity, length);
}

/// The program that the video belongs to. JSON key "program".
#define JXVideoContentEvent_program "JXVideoContentEvent.program"
/// Sets `program`; null removes the value.
static inline jx_status JXVideoContentEvent_setProgram(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_program, value);
}
/// Writes `program` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getProgram(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_program, buffer, capacity, length);
}

/// The channel that shows the video. JSON key "channel".
#define JXVideoContentEvent_channel "JXVideoContentEvent.channel"
/// Sets `channel`; null removes the value.
static inline jx_status JXVideoContentEvent_setChannel(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_channel, value);
}
/// Writes `channel` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getChannel(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_channel, buffer, capacity, length);
}

/// The identifier of the content. JSON key "content_asset_id".
#define JXVideoContentEvent_contentAssetID "JXVideoContentEvent.contentAssetID"
/// Sets `contentAssetID`; null removes the value.
static inline jx_status JXVideoContentEvent_setContentAssetID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_contentAssetID, value);
}
/// Writes `contentAssetID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getContentAssetID(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_contentAssetID, buffer, capacity, length);
}

/// The category of the video, a free-form string. JSON key "video_category".
#define JXVideoContentEvent_videoCategory "JXVideoContentEvent.videoCategory"
/// Sets `videoCategory`; null removes the value.
static inline jx_status JXVideoContentEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoCategory, value);
}
/// Writes `videoCategory` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getVideoCategory(const jx_object* event, char* buffer,
                                                             size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_videoCategory, buffer, capacity, length);
}

/// The date of the first broadcast, a string in the format that the application chooses. The
/// capital D is historic: JXVideoSettingEvent has `airdate`. JSON key "airdate".
#define JXVideoContentEvent_airDate "JXVideoContentEvent.airDate"
/// Sets `airDate`; null removes the value.
static inline jx_status JXVideoContentEvent_setAirDate(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_airDate, value);
}
/// Writes `airDate` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getAirDate(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_airDate, buffer, capacity, length);
}

/// The event's keywords, initially an empty list; callers may append to it. A null list is not
/// written. JSON key "keywords".
#define JXVideoContentEvent_keywords "JXVideoContentEvent.keywords"
/// Sets `keywords` from a JSON array; null removes the value.
static inline jx_status JXVideoContentEvent_setKeywords(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoContentEvent_keywords, json);
}
/// Appends a string to `keywords`.
static inline jx_status JXVideoContentEvent_keywords_append_string(jx_object* event,
                                                                   const char* value) {
  return jx_object_list_insert_string(event, JXVideoContentEvent_keywords, JX_LIST_END, value);
}
/// Appends a number to `keywords`.
static inline jx_status JXVideoContentEvent_keywords_append_number(jx_object* event,
                                                                   const char* number) {
  return jx_object_list_insert_number(event, JXVideoContentEvent_keywords, JX_LIST_END, number);
}
/// Appends a Boolean to `keywords`.
static inline jx_status JXVideoContentEvent_keywords_append_boolean(jx_object* event, bool value) {
  return jx_object_list_insert_boolean(event, JXVideoContentEvent_keywords, JX_LIST_END, value);
}
/// Writes `keywords` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getKeywords(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoContentEvent_keywords, buffer, capacity, length);
}
/// Writes the number of elements of `keywords`.
static inline jx_status JXVideoContentEvent_keywords_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXVideoContentEvent_keywords, count);
}
/// Sets `keywords` to an empty list.
static inline jx_status JXVideoContentEvent_keywords_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoContentEvent_keywords);
}

/// True if the video is a full episode, not a part of it. Always written. JSON key "full_episode".
#define JXVideoContentEvent_fullEpisode "JXVideoContentEvent.fullEpisode"
/// Sets `fullEpisode`.
static inline jx_status JXVideoContentEvent_setFullEpisode(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoContentEvent_fullEpisode, value);
}
/// Writes `fullEpisode` to `*value`.
static inline jx_status JXVideoContentEvent_getFullEpisode(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoContentEvent_fullEpisode, value);
}

/// True if the video is live. Always written. JSON key "livestream".
#define JXVideoContentEvent_livestream "JXVideoContentEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoContentEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoContentEvent_livestream, value);
}
/// Writes `livestream` to `*value`.
static inline jx_status JXVideoContentEvent_getLivestream(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoContentEvent_livestream, value);
}

/// The bit rate, in the unit that the application uses for all events; written unchanged. JSON key
/// "bitrate".
#define JXVideoContentEvent_bitrate "JXVideoContentEvent.bitrate"
/// Sets `bitrate` from a decimal string; null removes the value.
static inline jx_status JXVideoContentEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_bitrate, number);
}
/// Sets `bitrate` from an integer.
static inline jx_status JXVideoContentEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_bitrate, value);
}
/// Writes `bitrate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getBitrate(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoContentEvent_bitrate, buffer, capacity, length);
}

/// The frame rate, in frames per second. JSON key "framerate".
#define JXVideoContentEvent_framerate "JXVideoContentEvent.framerate"
/// Sets `framerate` from a decimal string; null removes the value.
static inline jx_status JXVideoContentEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_framerate, number);
}
/// Sets `framerate` from an integer.
static inline jx_status JXVideoContentEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_framerate, value);
}
/// Writes `framerate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getFramerate(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoContentEvent_framerate, buffer, capacity, length);
}

/// The length of the video, preferably in seconds; written unchanged. JSON key "total_length".
#define JXVideoContentEvent_totalLength "JXVideoContentEvent.totalLength"
/// Sets `totalLength` from a decimal string; null removes the value.
static inline jx_status JXVideoContentEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_totalLength, number);
}
/// Sets `totalLength` from an integer.
static inline jx_status JXVideoContentEvent_setTotalLength_integer(jx_object* event,
                                                                   int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_totalLength, value);
}
/// Writes `totalLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getTotalLength(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoContentEvent_totalLength, buffer, capacity, length);
}

/// The video session ID; the same string in all events of a session. JSON key "video_session_id".
#define JXVideoContentEvent_videoSessionID "JXVideoContentEvent.videoSessionID"
/// Sets `videoSessionID`; null removes the value.
static inline jx_status JXVideoContentEvent_setVideoSessionID(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoSessionID, value);
}
/// Writes `videoSessionID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getVideoSessionID(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_videoSessionID, buffer, capacity, length);
}

/// The position of the playhead, in the unit of `totalLength`. JSON key "cursor_position".
#define JXVideoContentEvent_cursorPosition "JXVideoContentEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoContentEvent_setCursorPosition(jx_object* event,
                                                              const char* number) {
  return jx_object_set_number(event, JXVideoContentEvent_cursorPosition, number);
}
/// Sets `cursorPosition` from an integer.
static inline jx_status JXVideoContentEvent_setCursorPosition_integer(jx_object* event,
                                                                      int64_t value) {
  return jx_object_set_integer(event, JXVideoContentEvent_cursorPosition, value);
}
/// Writes `cursorPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getCursorPosition(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoContentEvent_cursorPosition, buffer, capacity, length);
}

/// The title of the video. JSON key "video_title".
#define JXVideoContentEvent_videoTitle "JXVideoContentEvent.videoTitle"
/// Sets `videoTitle`; null removes the value.
static inline jx_status JXVideoContentEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_videoTitle, value);
}
/// Writes `videoTitle` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getVideoTitle(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_videoTitle, buffer, capacity, length);
}

/// The publisher of the video. JSON key "publisher".
#define JXVideoContentEvent_publisher "JXVideoContentEvent.publisher"
/// Sets `publisher`; null removes the value.
static inline jx_status JXVideoContentEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_publisher, value);
}
/// Writes `publisher` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getPublisher(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_publisher, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXVideoContentEvent_name "JXVideoContentEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXVideoContentEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getName(const jx_object* event, char* buffer,
                                                    size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXVideoContentEvent_pageType "JXVideoContentEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXVideoContentEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getPageType(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXVideoContentEvent_pageName "JXVideoContentEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXVideoContentEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoContentEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoContentEvent_getPageName(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoContentEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
