// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoSettingEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

using Event = JXVideoSettingEvent;

std::shared_ptr<Event> validSetting(EJXVideoSettingMode mode) {
  const auto event = Event::initWithMode_andSessionId(mode, "s-1");
  event->setContentAssetID("A1");
  event->setCursorPosition(10);
  event->setBitrate(4500);
  event->setSound(0);
  return event;
}

TEST(JXVideoSettingEvent, WritesAllFieldsInOrder) {
  const auto event = validSetting(EJXVideoSettingMode_QUALITY);
  event->setPageName("P");
  event->setPageType("t");
  event->setTotalLength(5400);
  event->setVideoTitle("Moon");
  event->setPublisher("Example Films");
  event->setFullEpisode(true);
  event->setLivestream(true);
  event->setFullScreen(true);
  event->setAdEnabled(true);
  event->setContentPodID("P1");
  event->setAdAssetID("X1");
  event->setAdPodID("Y1");
  event->setAdType("banner");
  event->setVideoDescription("A film");
  event->keywords().append("moon");
  event->setSeason("1");
  event->setEpisode("2");
  event->setVideoCategory("film");
  event->setProgram("Space");
  event->setChannel("One");
  event->setAirdate("2026-01-01");
  event->setFramerate(25);
  event->setSound(decimal("0.5"));
  event->setImageQuality("4K");
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"video_quality","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"video_session_id":"s-1","cursor_position":10,)"
            R"("total_length":5400,"video_title":"Moon","publisher":"Example Films",)"
            R"("content_pod_id":"P1","content_asset_id":"A1","ad_asset_id":"X1",)"
            R"("ad_pod_id":"Y1","ad_type":"banner","video_description":"A film","season":"1",)"
            R"("episode":"2","video_category":"film","program":"Space","channel":"One",)"
            R"("airdate":"2026-01-01","image_quality":"4K","keywords":["moon"],)"
            R"("full_screen":true,"full_episode":true,"ad_enabled":true,"livestream":true,)"
            R"("bitrate":4500,"framerate":25,"sound":0.5})");
}

TEST(JXVideoSettingEvent, WritesBooleansAndEmptyKeywordsByDefault) {
  EXPECT_EQ(eventJson(*Event::initWithMode_andSessionId(EJXVideoSettingMode_SHARE, nullptr)),
            R"({"event_name":"video_share","context":{"event_id":"E"},"keywords":[],)"
            R"("full_screen":false,"full_episode":false,"ad_enabled":false,"livestream":false})");
}

TEST(JXVideoSettingEvent, RequiresSessionIDAssetCursorBitrateAndSoundForVolume) {
  expectRules<Event>(
      [] { return validSetting(EJXVideoSettingMode_VOLUME); },
      {{"videoSessionID must be a non-empty string",
        [](auto& event) { event.setVideoSessionID(""); }},
       {"contentAssetID must be a non-empty string",
        [](auto& event) { event.setContentAssetID(""); }},
       {"cursorPosition must be set", [](auto& event) { event.setCursorPosition(std::nullopt); }},
       {"bitrate must be set", [](auto& event) { event.setBitrate(std::nullopt); }},
       {"sound must be set", [](auto& event) { event.setSound(std::nullopt); }}});
}

TEST(JXVideoSettingEvent, RequiresASoundOnlyForVolume) {
  for (int mode = EJXVideoSettingMode_VOLUME; mode <= EJXVideoSettingMode_SHARE; ++mode) {
    const auto event = validSetting(static_cast<EJXVideoSettingMode>(mode));
    event->setSound(std::nullopt);
    EXPECT_EQ(event->verifyEvent(), mode != 0) << event->name();
  }
}

TEST(JXVideoSettingEvent, IsInvalidWithoutABitrateEvenWithALength) {
  const auto event = validSetting(EJXVideoSettingMode_SPEED);
  event->setTotalLength(5400);
  event->setBitrate(std::nullopt);
  EXPECT_FALSE(event->verifyEvent());
}

TEST(JXVideoSettingEvent, IsNamedVideoVolumeForModeZero) {
  const auto event = Event::initWithMode_andSessionId(static_cast<EJXVideoSettingMode>(0), "s");
  EXPECT_EQ(event->name(), JXString("video_volume"));
}

TEST(JXVideoSettingEvent, HasNoNameForAnUnknownMode) {
  EXPECT_EQ(Event::initWithMode_andSessionId(static_cast<EJXVideoSettingMode>(8), "s")->name(),
            JXString());
}

}  // namespace
}  // namespace jx::test
