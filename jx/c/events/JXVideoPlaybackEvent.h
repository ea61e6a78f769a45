// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXVIDEOPLAYBACKEVENT_H
#define JX_C_EVENTS_JXVIDEOPLAYBACKEVENT_H

#include "jx/c/events/jx_names.h"
#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A change in the playback: start, pause, resume, error, buffering, seeking or completion.
/// Playback may span several assets and pods, so these are lists. Includes the fields of
/// JXVideoEvent and JXEvent.
#define JXVideoPlaybackEvent_class "JXVideoPlaybackEvent"

/// Creates an event in `*event`; free it with `jx_object_free`. `mode` determines its name;
/// `session_id` may be null.
static inline jx_status JXVideoPlaybackEvent_create(EJXVideoPlaybackMode mode,
                                                    const char* session_id, jx_object** event) {
  return jx_event_create_with_mode("JXVideoPlaybackEvent", mode, session_id, event);
}

/// The name of the player. JSON key "video_player".
#define JXVideoPlaybackEvent_videoPlayer "JXVideoPlaybackEvent.videoPlayer"
/// Sets `videoPlayer`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setVideoPlayer(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoPlayer, value);
}
/// Writes `videoPlayer` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getVideoPlayer(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_videoPlayer, buffer, capacity, length);
}

/// The type of the advertisement, a free-form string. The lower-case t is historic: the other video
/// events have `adType`. JSON key "ad_type".
#define JXVideoPlaybackEvent_adtype "JXVideoPlaybackEvent.adtype"
/// Sets `adtype`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setAdtype(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_adtype, value);
}
/// Writes `adtype` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getAdtype(const jx_object* event, char* buffer,
                                                       size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_adtype, buffer, capacity, length);
}

/// The image quality, a free-form string such as "2160p". JSON key "image_quality".
#define JXVideoPlaybackEvent_imageQuality "JXVideoPlaybackEvent.imageQuality"
/// Sets `imageQuality`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setImageQuality(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_imageQuality, value);
}
/// Writes `imageQuality` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getImageQuality(const jx_object* event, char* buffer,
                                                             size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_imageQuality, buffer, capacity, length);
}

/// The cause of an interruption of the video, a free-form string. JSON key "interruption_method".
#define JXVideoPlaybackEvent_interruptionMethod "JXVideoPlaybackEvent.interruptionMethod"
/// Sets `interruptionMethod`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setInterruptionMethod(jx_object* event,
                                                                   const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_interruptionMethod, value);
}
/// Writes `interruptionMethod` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getInterruptionMethod(const jx_object* event,
                                                                   char* buffer, size_t capacity,
                                                                   size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_interruptionMethod, buffer, capacity,
                              length);
}

/// The category of the video, a free-form string. JSON key "video_category".
#define JXVideoPlaybackEvent_videoCategory "JXVideoPlaybackEvent.videoCategory"
/// Sets `videoCategory`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setVideoCategory(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoCategory, value);
}
/// Writes `videoCategory` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getVideoCategory(const jx_object* event, char* buffer,
                                                              size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_videoCategory, buffer, capacity, length);
}

/// True if the video fills the screen. Always written. JSON key "full_screen".
#define JXVideoPlaybackEvent_fullScreen "JXVideoPlaybackEvent.fullScreen"
/// Sets `fullScreen`.
static inline jx_status JXVideoPlaybackEvent_setFullScreen(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_fullScreen, value);
}
/// Writes `fullScreen` to `*value`.
static inline jx_status JXVideoPlaybackEvent_getFullScreen(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoPlaybackEvent_fullScreen, value);
}

/// True if advertisements are enabled. Always written. JSON key "ad_enabled".
#define JXVideoPlaybackEvent_adEnabled "JXVideoPlaybackEvent.adEnabled"
/// Sets `adEnabled`.
static inline jx_status JXVideoPlaybackEvent_setAdEnabled(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_adEnabled, value);
}
/// Writes `adEnabled` to `*value`.
static inline jx_status JXVideoPlaybackEvent_getAdEnabled(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoPlaybackEvent_adEnabled, value);
}

/// True if the video is live. Always written. JSON key "livestream".
#define JXVideoPlaybackEvent_livestream "JXVideoPlaybackEvent.livestream"
/// Sets `livestream`.
static inline jx_status JXVideoPlaybackEvent_setLivestream(jx_object* event, bool value) {
  return jx_object_set_boolean(event, JXVideoPlaybackEvent_livestream, value);
}
/// Writes `livestream` to `*value`.
static inline jx_status JXVideoPlaybackEvent_getLivestream(const jx_object* event, bool* value) {
  return jx_object_get_boolean(event, JXVideoPlaybackEvent_livestream, value);
}

/// The content assets of the playback, initially an empty list; callers may append to it. A null
/// list is not written. JSON key "content_asset_id".
#define JXVideoPlaybackEvent_contentAssetID "JXVideoPlaybackEvent.contentAssetID"
/// Sets `contentAssetID` from a JSON array; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setContentAssetID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_contentAssetID, json);
}
/// Appends a string to `contentAssetID`.
static inline jx_status JXVideoPlaybackEvent_contentAssetID_append_string(jx_object* event,
                                                                          const char* value) {
  return jx_object_list_insert_string(event, JXVideoPlaybackEvent_contentAssetID, JX_LIST_END,
                                      value);
}
/// Appends a number to `contentAssetID`.
static inline jx_status JXVideoPlaybackEvent_contentAssetID_append_number(jx_object* event,
                                                                          const char* number) {
  return jx_object_list_insert_number(event, JXVideoPlaybackEvent_contentAssetID, JX_LIST_END,
                                      number);
}
/// Appends a Boolean to `contentAssetID`.
static inline jx_status JXVideoPlaybackEvent_contentAssetID_append_boolean(jx_object* event,
                                                                           bool value) {
  return jx_object_list_insert_boolean(event, JXVideoPlaybackEvent_contentAssetID, JX_LIST_END,
                                       value);
}
/// Writes `contentAssetID` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getContentAssetID(const jx_object* event, char* buffer,
                                                               size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoPlaybackEvent_contentAssetID, buffer, capacity, length);
}
/// Writes the number of elements of `contentAssetID`.
static inline jx_status JXVideoPlaybackEvent_contentAssetID_count(const jx_object* event,
                                                                  size_t* count) {
  return jx_object_list_count(event, JXVideoPlaybackEvent_contentAssetID, count);
}
/// Sets `contentAssetID` to an empty list.
static inline jx_status JXVideoPlaybackEvent_contentAssetID_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoPlaybackEvent_contentAssetID);
}

/// The content pods of the playback; same rules as `contentAssetID`. JSON key "content_pod_id".
#define JXVideoPlaybackEvent_contentPodID "JXVideoPlaybackEvent.contentPodID"
/// Sets `contentPodID` from a JSON array; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setContentPodID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_contentPodID, json);
}
/// Appends a string to `contentPodID`.
static inline jx_status JXVideoPlaybackEvent_contentPodID_append_string(jx_object* event,
                                                                        const char* value) {
  return jx_object_list_insert_string(event, JXVideoPlaybackEvent_contentPodID, JX_LIST_END, value);
}
/// Appends a number to `contentPodID`.
static inline jx_status JXVideoPlaybackEvent_contentPodID_append_number(jx_object* event,
                                                                        const char* number) {
  return jx_object_list_insert_number(event, JXVideoPlaybackEvent_contentPodID, JX_LIST_END,
                                      number);
}
/// Appends a Boolean to `contentPodID`.
static inline jx_status JXVideoPlaybackEvent_contentPodID_append_boolean(jx_object* event,
                                                                         bool value) {
  return jx_object_list_insert_boolean(event, JXVideoPlaybackEvent_contentPodID, JX_LIST_END,
                                       value);
}
/// Writes `contentPodID` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getContentPodID(const jx_object* event, char* buffer,
                                                             size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoPlaybackEvent_contentPodID, buffer, capacity, length);
}
/// Writes the number of elements of `contentPodID`.
static inline jx_status JXVideoPlaybackEvent_contentPodID_count(const jx_object* event,
                                                                size_t* count) {
  return jx_object_list_count(event, JXVideoPlaybackEvent_contentPodID, count);
}
/// Sets `contentPodID` to an empty list.
static inline jx_status JXVideoPlaybackEvent_contentPodID_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoPlaybackEvent_contentPodID);
}

/// The advertisements of the playback; same rules as `contentAssetID`. JSON key "ad_asset_id".
#define JXVideoPlaybackEvent_adAssetID "JXVideoPlaybackEvent.adAssetID"
/// Sets `adAssetID` from a JSON array; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setAdAssetID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_adAssetID, json);
}
/// Appends a string to `adAssetID`.
static inline jx_status JXVideoPlaybackEvent_adAssetID_append_string(jx_object* event,
                                                                     const char* value) {
  return jx_object_list_insert_string(event, JXVideoPlaybackEvent_adAssetID, JX_LIST_END, value);
}
/// Appends a number to `adAssetID`.
static inline jx_status JXVideoPlaybackEvent_adAssetID_append_number(jx_object* event,
                                                                     const char* number) {
  return jx_object_list_insert_number(event, JXVideoPlaybackEvent_adAssetID, JX_LIST_END, number);
}
/// Appends a Boolean to `adAssetID`.
static inline jx_status JXVideoPlaybackEvent_adAssetID_append_boolean(jx_object* event,
                                                                      bool value) {
  return jx_object_list_insert_boolean(event, JXVideoPlaybackEvent_adAssetID, JX_LIST_END, value);
}
/// Writes `adAssetID` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getAdAssetID(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoPlaybackEvent_adAssetID, buffer, capacity, length);
}
/// Writes the number of elements of `adAssetID`.
static inline jx_status JXVideoPlaybackEvent_adAssetID_count(const jx_object* event,
                                                             size_t* count) {
  return jx_object_list_count(event, JXVideoPlaybackEvent_adAssetID, count);
}
/// Sets `adAssetID` to an empty list.
static inline jx_status JXVideoPlaybackEvent_adAssetID_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoPlaybackEvent_adAssetID);
}

/// The ad breaks of the playback; same rules as `contentAssetID`. JSON key "ad_pod_id".
#define JXVideoPlaybackEvent_adPodID "JXVideoPlaybackEvent.adPodID"
/// Sets `adPodID` from a JSON array; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setAdPodID(jx_object* event, const char* json) {
  return jx_object_set_json(event, JXVideoPlaybackEvent_adPodID, json);
}
/// Appends a string to `adPodID`.
static inline jx_status JXVideoPlaybackEvent_adPodID_append_string(jx_object* event,
                                                                   const char* value) {
  return jx_object_list_insert_string(event, JXVideoPlaybackEvent_adPodID, JX_LIST_END, value);
}
/// Appends a number to `adPodID`.
static inline jx_status JXVideoPlaybackEvent_adPodID_append_number(jx_object* event,
                                                                   const char* number) {
  return jx_object_list_insert_number(event, JXVideoPlaybackEvent_adPodID, JX_LIST_END, number);
}
/// Appends a Boolean to `adPodID`.
static inline jx_status JXVideoPlaybackEvent_adPodID_append_boolean(jx_object* event, bool value) {
  return jx_object_list_insert_boolean(event, JXVideoPlaybackEvent_adPodID, JX_LIST_END, value);
}
/// Writes `adPodID` as a JSON array to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getAdPodID(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_json(event, JXVideoPlaybackEvent_adPodID, buffer, capacity, length);
}
/// Writes the number of elements of `adPodID`.
static inline jx_status JXVideoPlaybackEvent_adPodID_count(const jx_object* event, size_t* count) {
  return jx_object_list_count(event, JXVideoPlaybackEvent_adPodID, count);
}
/// Sets `adPodID` to an empty list.
static inline jx_status JXVideoPlaybackEvent_adPodID_clear(jx_object* event) {
  return jx_object_list_clear(event, JXVideoPlaybackEvent_adPodID);
}

/// The start or end position of a seek, in the unit of `cursorPosition`. JSON key "seek_position".
#define JXVideoPlaybackEvent_seekPosition "JXVideoPlaybackEvent.seekPosition"
/// Sets `seekPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setSeekPosition(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_seekPosition, number);
}
/// Sets `seekPosition` from an integer.
static inline jx_status JXVideoPlaybackEvent_setSeekPosition_integer(jx_object* event,
                                                                     int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_seekPosition, value);
}
/// Writes `seekPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getSeekPosition(const jx_object* event, char* buffer,
                                                             size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_seekPosition, buffer, capacity, length);
}

/// The bit rate, in the unit that the application uses for all events; written unchanged. JSON key
/// "bitrate".
#define JXVideoPlaybackEvent_bitrate "JXVideoPlaybackEvent.bitrate"
/// Sets `bitrate` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setBitrate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_bitrate, number);
}
/// Sets `bitrate` from an integer.
static inline jx_status JXVideoPlaybackEvent_setBitrate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_bitrate, value);
}
/// Writes `bitrate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getBitrate(const jx_object* event, char* buffer,
                                                        size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_bitrate, buffer, capacity, length);
}

/// The frame rate, in frames per second. JSON key "framerate".
#define JXVideoPlaybackEvent_framerate "JXVideoPlaybackEvent.framerate"
/// Sets `framerate` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setFramerate(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_framerate, number);
}
/// Sets `framerate` from an integer.
static inline jx_status JXVideoPlaybackEvent_setFramerate_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_framerate, value);
}
/// Writes `framerate` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getFramerate(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_framerate, buffer, capacity, length);
}

/// The volume, on the scale that the application uses for all events. JSON key "sound".
#define JXVideoPlaybackEvent_sound "JXVideoPlaybackEvent.sound"
/// Sets `sound` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setSound(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_sound, number);
}
/// Sets `sound` from an integer.
static inline jx_status JXVideoPlaybackEvent_setSound_integer(jx_object* event, int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_sound, value);
}
/// Writes `sound` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getSound(const jx_object* event, char* buffer,
                                                      size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_sound, buffer, capacity, length);
}

/// The video session ID; the same string in all events of a session. JSON key "video_session_id".
#define JXVideoPlaybackEvent_videoSessionID "JXVideoPlaybackEvent.videoSessionID"
/// Sets `videoSessionID`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setVideoSessionID(jx_object* event,
                                                               const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoSessionID, value);
}
/// Writes `videoSessionID` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getVideoSessionID(const jx_object* event, char* buffer,
                                                               size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_videoSessionID, buffer, capacity, length);
}

/// The position of the playhead, in the unit of `totalLength`. JSON key "cursor_position".
#define JXVideoPlaybackEvent_cursorPosition "JXVideoPlaybackEvent.cursorPosition"
/// Sets `cursorPosition` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setCursorPosition(jx_object* event,
                                                               const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_cursorPosition, number);
}
/// Sets `cursorPosition` from an integer.
static inline jx_status JXVideoPlaybackEvent_setCursorPosition_integer(jx_object* event,
                                                                       int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_cursorPosition, value);
}
/// Writes `cursorPosition` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getCursorPosition(const jx_object* event, char* buffer,
                                                               size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_cursorPosition, buffer, capacity, length);
}

/// The length of the video, preferably in seconds; written unchanged. JSON key "total_length".
#define JXVideoPlaybackEvent_totalLength "JXVideoPlaybackEvent.totalLength"
/// Sets `totalLength` from a decimal string; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setTotalLength(jx_object* event, const char* number) {
  return jx_object_set_number(event, JXVideoPlaybackEvent_totalLength, number);
}
/// Sets `totalLength` from an integer.
static inline jx_status JXVideoPlaybackEvent_setTotalLength_integer(jx_object* event,
                                                                    int64_t value) {
  return jx_object_set_integer(event, JXVideoPlaybackEvent_totalLength, value);
}
/// Writes `totalLength` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getTotalLength(const jx_object* event, char* buffer,
                                                            size_t capacity, size_t* length) {
  return jx_object_get_number(event, JXVideoPlaybackEvent_totalLength, buffer, capacity, length);
}

/// The title of the video. JSON key "video_title".
#define JXVideoPlaybackEvent_videoTitle "JXVideoPlaybackEvent.videoTitle"
/// Sets `videoTitle`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setVideoTitle(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_videoTitle, value);
}
/// Writes `videoTitle` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getVideoTitle(const jx_object* event, char* buffer,
                                                           size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_videoTitle, buffer, capacity, length);
}

/// The publisher of the video. JSON key "publisher".
#define JXVideoPlaybackEvent_publisher "JXVideoPlaybackEvent.publisher"
/// Sets `publisher`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setPublisher(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_publisher, value);
}
/// Writes `publisher` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getPublisher(const jx_object* event, char* buffer,
                                                          size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_publisher, buffer, capacity, length);
}

/// The event name, written as "event_name". JSON key "event_name".
#define JXVideoPlaybackEvent_name "JXVideoPlaybackEvent.name"
/// Sets `name`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getName(const jx_object* event, char* buffer,
                                                     size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_name, buffer, capacity, length);
}

/// The type of the page that the viewer is on. JSON key "page_type".
#define JXVideoPlaybackEvent_pageType "JXVideoPlaybackEvent.pageType"
/// Sets `pageType`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setPageType(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_pageType, value);
}
/// Writes `pageType` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getPageType(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_pageType, buffer, capacity, length);
}

/// The name of the page that the viewer is on. JSON key "page_name".
#define JXVideoPlaybackEvent_pageName "JXVideoPlaybackEvent.pageName"
/// Sets `pageName`; null removes the value.
static inline jx_status JXVideoPlaybackEvent_setPageName(jx_object* event, const char* value) {
  return jx_object_set_string(event, JXVideoPlaybackEvent_pageName, value);
}
/// Writes `pageName` to `buffer`; see `jx_object_json`.
static inline jx_status JXVideoPlaybackEvent_getPageName(const jx_object* event, char* buffer,
                                                         size_t capacity, size_t* length) {
  return jx_object_get_string(event, JXVideoPlaybackEvent_pageName, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
