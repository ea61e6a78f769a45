// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoPlaybackEvent.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

using Event = JXVideoPlaybackEvent;

std::shared_ptr<Event> validPlayback() {
  const auto event = Event::initWithMode_andSessionId(EJXVideoPlaybackMode_PAUSE, "s-1");
  event->contentAssetID().append("A1");
  event->setCursorPosition(0);
  event->setTotalLength(5400);
  return event;
}

TEST(JXVideoPlaybackEvent, WritesAllFieldsInOrder) {
  const auto event = validPlayback();
  event->setPageName("P");
  event->setPageType("t");
  event->setVideoTitle("Moon");
  event->setPublisher("Example Films");
  event->setFullScreen(true);
  event->setAdEnabled(true);
  event->setLivestream(true);
  event->contentAssetID().append("A2");
  event->contentPodID().append("P1");
  event->adAssetID().append("X1");
  event->adPodID().append(7);
  event->setAdtype("banner");
  event->setSeekPosition(decimal("60.5"));
  event->setBitrate(4500);
  event->setFramerate(decimal("23.976"));
  event->setVideoPlayer("Example Player");
  event->setSound(decimal("0.80"));
  event->setImageQuality("4K");
  event->setInterruptionMethod("call");
  event->setVideoCategory("film");
  EXPECT_EQ(
      eventJson(*event),
      R"({"event_name":"video_pause","page_name":"P","page_type":"t","context":{"event_id":"E"},)"
      R"("video_session_id":"s-1","cursor_position":0,"total_length":5400,"video_title":"Moon",)"
      R"("publisher":"Example Films","video_player":"Example Player","ad_type":"banner",)"
      R"("image_quality":"4K","interruption_method":"call","video_category":"film",)"
      R"("full_screen":true,"ad_enabled":true,"livestream":true,"content_asset_id":["A1","A2"],)"
      R"("content_pod_id":["P1"],"ad_asset_id":["X1"],"ad_pod_id":[7],"seek_position":60.5,)"
      R"("bitrate":4500,"framerate":23.976,"sound":0.80})");
}

TEST(JXVideoPlaybackEvent, WritesBooleansAndEmptyListsByDefault) {
  EXPECT_EQ(eventJson(*Event::initWithMode_andSessionId(EJXVideoPlaybackMode_START, nullptr)),
            R"({"event_name":"video_start","context":{"event_id":"E"},"full_screen":false,)"
            R"("ad_enabled":false,"livestream":false,"content_asset_id":[],"content_pod_id":[],)"
            R"("ad_asset_id":[],"ad_pod_id":[]})");
}

TEST(JXVideoPlaybackEvent, RequiresSessionIDContentAssetsCursorAndLength) {
  expectRules<Event>(
      validPlayback,
      {{"videoSessionID must be a non-empty string",
        [](auto& event) { event.setVideoSessionID(""); }},
       {"contentAssetID must be set", [](auto& event) { event.setContentAssetID(nullptr); }},
       {"cursorPosition must be set", [](auto& event) { event.setCursorPosition(std::nullopt); }},
       {"totalLength must be set", [](auto& event) { event.setTotalLength(std::nullopt); }}});
}

TEST(JXVideoPlaybackEvent, RequiresACursorPositionExceptForBuffering) {
  for (int mode = EJXVideoPlaybackMode_START; mode <= EJXVideoPlaybackMode_COMPLETE; ++mode) {
    const auto event =
        Event::initWithMode_andSessionId(static_cast<EJXVideoPlaybackMode>(mode), "s-1");
    event->setTotalLength(5400);
    const bool isBuffering = mode == 3 || mode == 4;
    EXPECT_EQ(event->verifyEvent(), isBuffering) << event->name();
  }
}

TEST(JXVideoPlaybackEvent, IsNamedVideoBufferStartForModeThree) {
  const auto event = Event::initWithMode_andSessionId(static_cast<EJXVideoPlaybackMode>(3), "s");
  EXPECT_EQ(event->name(), JXString("video_buffer_start"));
}

TEST(JXVideoPlaybackEvent, RejectsAndOmitsANullContentList) {
  const auto event = validPlayback();
  event->setContentAssetID(nullptr);
  EXPECT_FALSE(event->verifyEvent());
  EXPECT_FALSE(event->getJsonObject().contains("content_asset_id"));
}

TEST(JXVideoPlaybackEvent, AcceptsAndWritesAnEmptyContentList) {
  const auto event = validPlayback();
  event->setContentAssetID(JXJsonArray());
  EXPECT_TRUE(event->verifyEvent());
  EXPECT_TRUE(event->getJsonObject().get("content_asset_id").array().isPresent());
}

TEST(JXVideoPlaybackEvent, HasNoNameForAnUnknownMode) {
  for (const int mode : {-1, 9, 1000000, INT_MIN}) {
    const auto event =
        Event::initWithMode_andSessionId(static_cast<EJXVideoPlaybackMode>(mode), "s-1");
    EXPECT_EQ(event->name(), JXString());
    EXPECT_FALSE(event->getJsonObject().contains("event_name"));
  }
}

TEST(JXVideoPlaybackEvent, RequiresACursorPositionWithoutAName) {
  const auto event = validPlayback();
  event->setName(nullptr);
  EXPECT_TRUE(event->verifyEvent());
  event->setCursorPosition(std::nullopt);
  EXPECT_FALSE(event->verifyEvent());
}

}  // namespace
}  // namespace jx::test
