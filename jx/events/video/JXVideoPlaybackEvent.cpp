// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#include "jx/events/video/JXVideoPlaybackEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr auto kModes = JXEnumStrings(EJXVideoPlaybackMode_toString, EJXVideoPlaybackMode_members);

}  // namespace

std::shared_ptr<JXVideoPlaybackEvent> JXVideoPlaybackEvent::initWithMode_andSessionId(
    EJXVideoPlaybackMode mode, const JXString& sessionId) {
  std::shared_ptr<JXVideoPlaybackEvent> event = make<JXVideoPlaybackEvent>();
  event->setNameOfMode(kModes, mode);
  event->setVideoSessionID(sessionId);
  return event;
}

const JXEventClass& JXVideoPlaybackEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXVideoPlaybackEvent>(
      JXVideoEvent::eventClass(), "JXVideoPlaybackEvent", kModes.allStrings(),
      {
          {JXV_VIDEO_PLAYER, "videoPlayer", &JXVideoPlaybackEvent::videoPlayer_},
          {JXV_AD_TYPE, "adtype", &JXVideoPlaybackEvent::adtype_},
          {JXV_IMAGE_QUALITY, "imageQuality", &JXVideoPlaybackEvent::imageQuality_},
          {JXV_INTERRUPTION_METHOD, "interruptionMethod",
           &JXVideoPlaybackEvent::interruptionMethod_},
          {JXV_VIDEO_CATEGORY, "videoCategory", &JXVideoPlaybackEvent::videoCategory_},
          {JXV_FULL_SCREEN, "fullScreen", &JXVideoPlaybackEvent::fullScreen_},
          {JXV_AD_ENABLED, "adEnabled", &JXVideoPlaybackEvent::adEnabled_},
          {JXV_LIVESTREAM, "livestream", &JXVideoPlaybackEvent::livestream_},
          {JXV_CONTENT_ASSET_ID, "contentAssetID", &JXVideoPlaybackEvent::contentAssetID_},
          {JXV_CONTENT_POD_ID, "contentPodID", &JXVideoPlaybackEvent::contentPodID_},
          {JXV_AD_ASSET_ID, "adAssetID", &JXVideoPlaybackEvent::adAssetID_},
          {JXV_AD_POD_ID, "adPodID", &JXVideoPlaybackEvent::adPodID_},
          {JXV_SEEK_POSITION, "seekPosition", &JXVideoPlaybackEvent::seekPosition_},
          {JXV_BITRATE, "bitrate", &JXVideoPlaybackEvent::bitrate_},
          {JXV_FRAMERATE, "framerate", &JXVideoPlaybackEvent::framerate_},
          {JXV_SOUND, "sound", &JXVideoPlaybackEvent::sound_},
      },
      {
          nonEmptyString(JXV_VIDEO_SESSION_ID),
          present(JXV_CONTENT_ASSET_ID),
          exceptFor(present(JXV_CURSOR_POSITION),
                    {EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_BUFFER_START],
                     EJXVideoPlaybackMode_toString[EJXVideoPlaybackMode_BUFFER_COMPLETE]}),
          present(JXV_TOTAL_LENGTH),
      },
      createByMode<JXVideoPlaybackEvent, EJXVideoPlaybackMode>, kModes.allEnumerators());
  return type;
}

}  // namespace jx
