// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#include "jx/events/video/JXVideoAdEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr auto kModes = JXEnumStrings(EJXVideoAdMode_toString, EJXVideoAdMode_members);

}  // namespace

std::shared_ptr<JXVideoAdEvent> JXVideoAdEvent::initWithMode_andSessionId(
    EJXVideoAdMode mode, const JXString& sessionId) {
  std::shared_ptr<JXVideoAdEvent> event = make<JXVideoAdEvent>();
  event->setNameOfMode(kModes, mode);
  event->setVideoSessionID(sessionId);
  return event;
}

const JXEventClass& JXVideoAdEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXVideoAdEvent>(
      JXVideoEvent::eventClass(), "JXVideoAdEvent", kModes.allStrings(),
      {
          {JXV_AD_ASSET_ID, "adAssetID", &JXVideoAdEvent::adAssetID_},
          {JXV_AD_POD_ID, "adPodID", &JXVideoAdEvent::adPodID_},
          {JXV_POD_POSITION, "podPosition", &JXVideoAdEvent::podPosition_},
          {JXV_POD_LENGTH, "podLength", &JXVideoAdEvent::podLength_},
          {JXV_AD_QUARTILE, "adQuartile", &JXVideoAdEvent::adQuartile_},
          {JXV_AD_TYPE, "adType",
           JXEnumField<JXVideoAdEvent>{&JXVideoAdEvent::adType_,
                                       JXEnumStrings(EJXAdType_toString, EJXAdType_members)}},
          {JXV_LOAD_TYPE, "loadType",
           JXEnumField<JXVideoAdEvent>{
               &JXVideoAdEvent::loadType_,
               JXEnumStrings(EJXAdLoadType_toString, EJXAdLoadType_members)}},
      },
      {
          nonEmptyString(JXV_VIDEO_SESSION_ID),
          nonEmptyString(JXV_AD_ASSET_ID),
          nonEmptyString(JXV_AD_POD_ID),
          present(JXV_CURSOR_POSITION),
          present(JXV_TOTAL_LENGTH),
      },
      createByMode<JXVideoAdEvent, EJXVideoAdMode>, kModes.allEnumerators());
  return type;
}

}  // namespace jx
