// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#include "jx/events/video/JXVideoSettingEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr auto kModes = JXEnumStrings(EJXVideoSettingMode_toString, EJXVideoSettingMode_members);

}  // namespace

std::shared_ptr<JXVideoSettingEvent> JXVideoSettingEvent::initWithMode_andSessionId(
    EJXVideoSettingMode mode, const JXString& sessionId) {
  std::shared_ptr<JXVideoSettingEvent> event = make<JXVideoSettingEvent>();
  event->setNameOfMode(kModes, mode);
  event->setVideoSessionID(sessionId);
  return event;
}

const JXEventClass& JXVideoSettingEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXVideoSettingEvent>(
      JXVideoEvent::eventClass(), "JXVideoSettingEvent", kModes.allStrings(),
      {
          {JXV_CONTENT_POD_ID, "contentPodID", &JXVideoSettingEvent::contentPodID_},
          {JXV_CONTENT_ASSET_ID, "contentAssetID", &JXVideoSettingEvent::contentAssetID_},
          {JXV_AD_ASSET_ID, "adAssetID", &JXVideoSettingEvent::adAssetID_},
          {JXV_AD_POD_ID, "adPodID", &JXVideoSettingEvent::adPodID_},
          {JXV_AD_TYPE, "adType", &JXVideoSettingEvent::adType_},
          {JXV_VIDEO_DESCRIPTION, "videoDescription", &JXVideoSettingEvent::videoDescription_},
          {JXV_SEASON, "season", &JXVideoSettingEvent::season_},
          {JXV_EPISODE, "episode", &JXVideoSettingEvent::episode_},
          {JXV_VIDEO_CATEGORY, "videoCategory", &JXVideoSettingEvent::videoCategory_},
          {JXV_PROGRAM, "program", &JXVideoSettingEvent::program_},
          {JXV_CHANNEL, "channel", &JXVideoSettingEvent::channel_},
          {JXV_AIRDATE, "airdate", &JXVideoSettingEvent::airdate_},
          {JXV_IMAGE_QUALITY, "imageQuality", &JXVideoSettingEvent::imageQuality_},
          {JXV_KEYWORDS, "keywords", &JXVideoSettingEvent::keywords_},
          {JXV_FULL_SCREEN, "fullScreen", &JXVideoSettingEvent::fullScreen_},
          {JXV_FULL_EPISODE, "fullEpisode", &JXVideoSettingEvent::fullEpisode_},
          {JXV_AD_ENABLED, "adEnabled", &JXVideoSettingEvent::adEnabled_},
          {JXV_LIVESTREAM, "livestream", &JXVideoSettingEvent::livestream_},
          {JXV_BITRATE, "bitrate", &JXVideoSettingEvent::bitrate_},
          {JXV_FRAMERATE, "framerate", &JXVideoSettingEvent::framerate_},
          {JXV_SOUND, "sound", &JXVideoSettingEvent::sound_},
      },
      {
          nonEmptyString(JXV_VIDEO_SESSION_ID),
          nonEmptyString(JXV_CONTENT_ASSET_ID),
          present(JXV_CURSOR_POSITION),
          present(JXV_BITRATE),
          onlyFor(present(JXV_SOUND), {EJXVideoSettingMode_toString[EJXVideoSettingMode_VOLUME]}),
      },
      createByMode<JXVideoSettingEvent, EJXVideoSettingMode>, kModes.allEnumerators());
  return type;
}

}  // namespace jx
