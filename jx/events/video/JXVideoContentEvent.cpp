// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#include "jx/events/video/JXVideoContentEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr auto kModes = JXEnumStrings(EJXVideoContentMode_toString, EJXVideoContentMode_members);

}  // namespace

std::shared_ptr<JXVideoContentEvent> JXVideoContentEvent::initWithMode_andSessionId(
    EJXVideoContentMode mode, const JXString& sessionId) {
  std::shared_ptr<JXVideoContentEvent> event = make<JXVideoContentEvent>();
  event->setNameOfMode(kModes, mode);
  event->setVideoSessionID(sessionId);
  return event;
}

const JXEventClass& JXVideoContentEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXVideoContentEvent>(
      JXVideoEvent::eventClass(), "JXVideoContentEvent", kModes.allStrings(),
      {
          {JXV_CONTENT_POD_ID, "contentPodID", &JXVideoContentEvent::contentPodID_},
          {JXV_VIDEO_DESCRIPTION, "videoDescription", &JXVideoContentEvent::videoDescription_},
          {JXV_SEASON, "season", &JXVideoContentEvent::season_},
          {JXV_EPISODE, "episode", &JXVideoContentEvent::episode_},
          {JXV_PROGRAM, "program", &JXVideoContentEvent::program_},
          {JXV_CHANNEL, "channel", &JXVideoContentEvent::channel_},
          {JXV_CONTENT_ASSET_ID, "contentAssetID", &JXVideoContentEvent::contentAssetID_},
          {JXV_VIDEO_CATEGORY, "videoCategory", &JXVideoContentEvent::videoCategory_},
          {JXV_AIRDATE, "airDate", &JXVideoContentEvent::airDate_},
          {JXV_KEYWORDS, "keywords", &JXVideoContentEvent::keywords_},
          {JXV_FULL_EPISODE, "fullEpisode", &JXVideoContentEvent::fullEpisode_},
          {JXV_LIVESTREAM, "livestream", &JXVideoContentEvent::livestream_},
          {JXV_BITRATE, "bitrate", &JXVideoContentEvent::bitrate_},
          {JXV_FRAMERATE, "framerate", &JXVideoContentEvent::framerate_},
          {JXV_TOTAL_LENGTH, "totalLength", &JXVideoContentEvent::totalLength_},
      },
      {
          nonEmptyString(JXV_VIDEO_SESSION_ID),
          nonEmptyString(JXV_CONTENT_ASSET_ID),
          present(JXV_CURSOR_POSITION),
          present(JXV_TOTAL_LENGTH),
      },
      createByMode<JXVideoContentEvent, EJXVideoContentMode>, kModes.allEnumerators());
  return type;
}

}  // namespace jx
