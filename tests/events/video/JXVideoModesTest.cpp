// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoModes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "jx/events/video/JXAdTypes.h"

namespace jx::test {
namespace {

template <std::size_t N>
void expectTable(const std::array<std::string_view, N>& table,
                 const std::vector<std::string_view>& expected) {
  EXPECT_EQ(std::vector<std::string_view>(table.begin(), table.end()), expected);
}

TEST(JXVideoModes, PlaybackModesHaveTheirStrings) {
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_START], "video_start");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_PAUSE], "video_pause");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_ERROR], "video_error");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_BUFFER_START], "video_buffer_start");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_BUFFER_COMPLETE],
            "video_buffer_complete");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_SEEK_START], "video_seek_start");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_SEEK_COMPLETE],
            "video_seek_complete");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_RESUME], "video_resume");
  EXPECT_EQ(EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_COMPLETE], "video_complete");
  expectTable(EJXVideoPlaybackMode_members,
              {"START", "PAUSE", "ERROR", "BUFFER_START", "BUFFER_COMPLETE", "SEEK_START",
               "SEEK_COMPLETE", "RESUME", "COMPLETE"});
}

TEST(JXVideoModes, AdModesHaveTheirStrings) {
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_START], "video_ad_start");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_PLAYING], "video_ad_playing");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_STOP], "video_ad_stop");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_COMPLETE], "video_ad_complete");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_SKIP], "video_ad_skip");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_BREAK_START], "video_ad_break_start");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_BREAK_COMPLETE], "video_ad_break_complete");
  EXPECT_EQ(EJXVideoAdMode_toString[EJXVideoAdMode_CLICK], "video_ad_click");
  expectTable(EJXVideoAdMode_members, {"START", "PLAYING", "STOP", "COMPLETE", "SKIP",
                                       "BREAK_START", "BREAK_COMPLETE", "CLICK"});
}

TEST(JXVideoModes, ContentModesHaveTheirStrings) {
  EXPECT_EQ(EJXVideoContentMode_toString[EJXVideoContentMode_START], "video_content_start");
  EXPECT_EQ(EJXVideoContentMode_toString[EJXVideoContentMode_PLAYING], "video_content_playing");
  EXPECT_EQ(EJXVideoContentMode_toString[EJXVideoContentMode_QUARTER_REACHED],
            "video_content_quarter_reached");
  EXPECT_EQ(EJXVideoContentMode_toString[EJXVideoContentMode_COMPLETE], "video_content_complete");
  expectTable(EJXVideoContentMode_members, {"START", "PLAYING", "QUARTER_REACHED", "COMPLETE"});
}

TEST(JXVideoModes, SettingModesHaveTheirStrings) {
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_VOLUME], "video_volume");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_SPEED], "video_speed");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_SUBTITLE_ON], "video_subtitle_on");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_SUBTITLE_OFF], "video_subtitle_off");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_FULLSCREEN_ON], "video_fullscreen_on");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_FULLSCREEN_OFF],
            "video_fullscreen_off");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_QUALITY], "video_quality");
  EXPECT_EQ(EJXVideoSettingMode_toString[EJXVideoSettingMode_SHARE], "video_share");
  expectTable(EJXVideoSettingMode_members, {"VOLUME", "SPEED", "SUBTITLE_ON", "SUBTITLE_OFF",
                                            "FULLSCREEN_ON", "FULLSCREEN_OFF", "QUALITY", "SHARE"});
}

TEST(JXAdTypes, HaveTheirStrings) {
  EXPECT_EQ(EJXAdType_toString[EJXAdType_PRE_ROLL], "pre-roll");
  EXPECT_EQ(EJXAdType_toString[EJXAdType_MID_ROLL], "mid-roll");
  EXPECT_EQ(EJXAdType_toString[EJXAdType_POST_ROLL], "post-roll");
  EXPECT_EQ(EJXAdLoadType_toString[EJXAdLoadType_DYNAMIC], "dynamic");
  EXPECT_EQ(EJXAdLoadType_toString[EJXAdLoadType_LINEAR], "linear");
  expectTable(EJXAdType_members, {"PRE_ROLL", "MID_ROLL", "POST_ROLL"});
  expectTable(EJXAdLoadType_members, {"DYNAMIC", "LINEAR"});
}

TEST(JXVideoModes, AreNumberedFromZeroInOrder) {
  EXPECT_EQ(EJXVideoPlaybackMode_START, 0);
  EXPECT_EQ(EJXVideoPlaybackMode_BUFFER_START, 3);
  EXPECT_EQ(EJXVideoPlaybackMode_COMPLETE, 8);
  EXPECT_EQ(EJXVideoAdMode_CLICK, 7);
  EXPECT_EQ(EJXVideoContentMode_COMPLETE, 3);
  EXPECT_EQ(EJXVideoSettingMode_SHARE, 7);
  EXPECT_EQ(EJXAdType_POST_ROLL, 2);
  EXPECT_EQ(EJXAdLoadType_LINEAR, 1);
}

}  // namespace
}  // namespace jx::test
