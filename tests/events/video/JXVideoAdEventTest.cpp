// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoAdEvent.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/support/JXEventTestTools.h"

namespace jx::test {
namespace {

using Event = JXVideoAdEvent;

std::shared_ptr<Event> validAd() {
  const auto event = Event::initWithMode_andSessionId(EJXVideoAdMode_START, "s-1");
  event->setAdAssetID("X1");
  event->setAdPodID("P1");
  event->setCursorPosition(0);
  event->setTotalLength(5400);
  return event;
}

TEST(JXVideoAdEvent, WritesAllFieldsInOrder) {
  const auto event = validAd();
  event->setPageName("P");
  event->setPageType("t");
  event->setVideoTitle("Moon");
  event->setPublisher("Example Films");
  event->setAdType(EJXAdType_POST_ROLL);
  event->setLoadType(EJXAdLoadType_LINEAR);
  event->setPodPosition(1);
  event->setPodLength(3);
  event->setAdQuartile(decimal("2.0"));
  EXPECT_EQ(eventJson(*event),
            R"({"event_name":"video_ad_start","page_name":"P","page_type":"t",)"
            R"("context":{"event_id":"E"},"video_session_id":"s-1","cursor_position":0,)"
            R"("total_length":5400,"video_title":"Moon","publisher":"Example Films",)"
            R"("ad_asset_id":"X1","ad_pod_id":"P1","pod_position":1,"pod_length":3,)"
            R"("ad_quartile":2.0,"ad_type":"post-roll","load_type":"linear"})");
}

TEST(JXVideoAdEvent, WritesPreRollAndDynamicByDefault) {
  EXPECT_EQ(eventJson(*Event::initWithMode_andSessionId(EJXVideoAdMode_CLICK, nullptr)),
            R"({"event_name":"video_ad_click","context":{"event_id":"E"},"ad_type":"pre-roll",)"
            R"("load_type":"dynamic"})");
}

TEST(JXVideoAdEvent, RequiresSessionIDBothAdIDsCursorAndLength) {
  expectRules<Event>(
      validAd,
      {{"videoSessionID must be a non-empty string",
        [](auto& event) { event.setVideoSessionID(""); }},
       {"adAssetID must be a non-empty string", [](auto& event) { event.setAdAssetID(nullptr); }},
       {"adPodID must be a non-empty string", [](auto& event) { event.setAdPodID(""); }},
       {"cursorPosition must be set", [](auto& event) { event.setCursorPosition(std::nullopt); }},
       {"totalLength must be set", [](auto& event) { event.setTotalLength(std::nullopt); }}});
}

TEST(JXVideoAdEvent, IsInvalidWithAnEmptyPodID) {
  const auto event = validAd();
  event->setAdPodID("");
  EXPECT_FALSE(event->verifyEvent());
}

TEST(JXVideoAdEvent, WritesMidRollAndLinearForTypesOne) {
  const auto event = validAd();
  event->setAdType(static_cast<EJXAdType>(1));
  event->setLoadType(static_cast<EJXAdLoadType>(1));
  const JXJsonObject json = event->getJsonObject();
  EXPECT_EQ(json.get("ad_type").string(), JXString("mid-roll"));
  EXPECT_EQ(json.get("load_type").string(), JXString("linear"));
}

TEST(JXVideoAdEvent, StoresUnknownTypesWithoutWritingThem) {
  for (const int type : {-1, 3, INT_MAX, INT_MIN}) {
    const auto event = validAd();
    event->setAdType(static_cast<EJXAdType>(type));
    event->setLoadType(static_cast<EJXAdLoadType>(type));
    EXPECT_EQ(event->adType(), type);
    EXPECT_EQ(event->loadType(), type);
    EXPECT_FALSE(event->getJsonObject().contains("ad_type"));
    EXPECT_FALSE(event->getJsonObject().contains("load_type"));
    EXPECT_TRUE(event->verifyEvent());
  }
}

TEST(JXVideoAdEvent, HasNoNameForAnUnknownMode) {
  EXPECT_EQ(Event::initWithMode_andSessionId(static_cast<EJXVideoAdMode>(8), "s")->name(),
            JXString());
  EXPECT_EQ(Event::initWithMode_andSessionId(static_cast<EJXVideoAdMode>(-1), "s")->name(),
            JXString());
}

}  // namespace
}  // namespace jx::test
