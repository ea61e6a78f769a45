// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoContentEvent.h"

#include <gtest/gtest.h>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

using Event = JXVideoContentEvent;

std::shared_ptr<Event> validContent() {
  const auto event = Event::initWithMode_andSessionId(EJXVideoContentMode_QUARTER_REACHED, "s-1");
  event->setContentAssetID("A1");
  event->setCursorPosition(1350);
  event->setTotalLength(5400);
  return event;
}

TEST(JXVideoContentEvent, WritesAllFieldsInOrderAndTheLengthOnce) {
  const auto event = validContent();
  event->setPageName("P");
  event->setPageType("t");
  event->setVideoTitle("Moon");
  event->setPublisher("Example Films");
  event->setFullEpisode(true);
  event->setLivestream(true);
  event->setContentPodID("P1");
  event->setVideoDescription("A film");
  event->setSeason("1");
  event->setEpisode("2");
  event->setVideoCategory("film");
  event->setProgram("Space");
  event->setChannel("One");
  event->setAirDate("2026-01-01");
  event->keywords().append("moon");
  event->keywords().append("dust");
  event->setBitrate(4500);
  event->setFramerate(25);
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"video_content_quarter_reached","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"video_session_id":"s-1","cursor_position":1350,)"
            R"("total_length":5400,"video_title":"Moon","publisher":"Example Films",)"
            R"("content_pod_id":"P1","video_description":"A film","season":"1","episode":"2",)"
            R"("program":"Space","channel":"One","content_asset_id":"A1",)"
            R"("video_category":"film","airdate":"2026-01-01","keywords":["moon","dust"],)"
            R"("full_episode":true,"livestream":true,"bitrate":4500,"framerate":25})");
}

TEST(JXVideoContentEvent, WritesBooleansAndEmptyKeywordsByDefault) {
  EXPECT_EQ(eventJson(*Event::initWithMode_andSessionId(EJXVideoContentMode_START, nullptr)),
            R"({"event_name":"video_content_start","context":{"event_id":"E"},"keywords":[],)"
            R"("full_episode":false,"livestream":false})");
}

TEST(JXVideoContentEvent, RequiresSessionIDAssetCursorAndLength) {
  expectRules<Event>(
      validContent,
      {{"videoSessionID must be a non-empty string",
        [](auto& event) { event.setVideoSessionID(""); }},
       {"contentAssetID must be a non-empty string",
        [](auto& event) { event.setContentAssetID(""); }},
       {"cursorPosition must be set", [](auto& event) { event.setCursorPosition(std::nullopt); }},
       {"totalLength must be set", [](auto& event) { event.setTotalLength(std::nullopt); }}});
}

TEST(JXVideoContentEvent, OmitsNullKeywords) {
  const auto event = validContent();
  event->setKeywords(nullptr);
  event->keywords().append("lost");
  EXPECT_FALSE(event->getJsonObject().contains("keywords"));
}

TEST(JXVideoContentEvent, HasNoNameForAnUnknownMode) {
  EXPECT_EQ(Event::initWithMode_andSessionId(static_cast<EJXVideoContentMode>(4), "s")->name(),
            JXString());
}

}  // namespace
}  // namespace jx::test
