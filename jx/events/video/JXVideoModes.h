// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#pragma once

#include <array>
#include <string_view>

namespace jx {

// Each enumeration has two tables indexed by its values: the JSON strings, and the names of the
// enumerators without their prefix. Values are numbered from 0. Callers may pass any int; a value
// outside the enumeration has no string.

/// The modes of JXVideoPlaybackEvent; the string of a mode is the event name.
enum EJXVideoPlaybackMode : int {
  EJXVideoPlaybackMode_START,
  EJXVideoPlaybackMode_PAUSE,
  EJXVideoPlaybackMode_ERROR,
  EJXVideoPlaybackMode_BUFFER_START,
  EJXVideoPlaybackMode_BUFFER_COMPLETE,
  EJXVideoPlaybackMode_SEEK_START,
  EJXVideoPlaybackMode_SEEK_COMPLETE,
  EJXVideoPlaybackMode_RESUME,
  EJXVideoPlaybackMode_COMPLETE,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 9> EJXVideoPlaybackMode_toString{
    "video_start",         "video_pause",           "video_error",
    "video_buffer_start",  "video_buffer_complete", "video_seek_start",
    "video_seek_complete", "video_resume",          "video_complete",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 9> EJXVideoPlaybackMode_members{
    "START",      "PAUSE",         "ERROR",  "BUFFER_START", "BUFFER_COMPLETE",
    "SEEK_START", "SEEK_COMPLETE", "RESUME", "COMPLETE",
};

/// The modes of JXVideoAdEvent; the string of a mode is the event name.
enum EJXVideoAdMode : int {
  EJXVideoAdMode_START,
  EJXVideoAdMode_PLAYING,
  EJXVideoAdMode_STOP,
  EJXVideoAdMode_COMPLETE,
  EJXVideoAdMode_SKIP,
  EJXVideoAdMode_BREAK_START,
  EJXVideoAdMode_BREAK_COMPLETE,
  EJXVideoAdMode_CLICK,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 8> EJXVideoAdMode_toString{
    "video_ad_start", "video_ad_playing",     "video_ad_stop",           "video_ad_complete",
    "video_ad_skip",  "video_ad_break_start", "video_ad_break_complete", "video_ad_click",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 8> EJXVideoAdMode_members{
    "START", "PLAYING", "STOP", "COMPLETE", "SKIP", "BREAK_START", "BREAK_COMPLETE", "CLICK",
};

/// The modes of JXVideoContentEvent; the string of a mode is the event name.
enum EJXVideoContentMode : int {
  EJXVideoContentMode_START,
  EJXVideoContentMode_PLAYING,
  EJXVideoContentMode_QUARTER_REACHED,
  EJXVideoContentMode_COMPLETE,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 4> EJXVideoContentMode_toString{
    "video_content_start",
    "video_content_playing",
    "video_content_quarter_reached",
    "video_content_complete",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 4> EJXVideoContentMode_members{
    "START",
    "PLAYING",
    "QUARTER_REACHED",
    "COMPLETE",
};

/// The modes of JXVideoSettingEvent; the string of a mode is the event name.
enum EJXVideoSettingMode : int {
  EJXVideoSettingMode_VOLUME,
  EJXVideoSettingMode_SPEED,
  EJXVideoSettingMode_SUBTITLE_ON,
  EJXVideoSettingMode_SUBTITLE_OFF,
  EJXVideoSettingMode_FULLSCREEN_ON,
  EJXVideoSettingMode_FULLSCREEN_OFF,
  EJXVideoSettingMode_QUALITY,
  EJXVideoSettingMode_SHARE,
};
/// The JSON string of each value.
inline constexpr std::array<std::string_view, 8> EJXVideoSettingMode_toString{
    "video_volume",        "video_speed",          "video_subtitle_on", "video_subtitle_off",
    "video_fullscreen_on", "video_fullscreen_off", "video_quality",     "video_share",
};
/// The name of each value, without its prefix.
inline constexpr std::array<std::string_view, 8> EJXVideoSettingMode_members{
    "VOLUME",        "SPEED",          "SUBTITLE_ON", "SUBTITLE_OFF",
    "FULLSCREEN_ON", "FULLSCREEN_OFF", "QUALITY",     "SHARE",
};

}  // namespace jx
