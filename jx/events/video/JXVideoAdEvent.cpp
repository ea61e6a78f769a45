// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/video/JXVideoAdEvent.h"

#include "jx/events/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr JXTextTable kModes(EJXVideoAdMode_toString, EJXVideoAdMode_members);
constexpr JXTextTable kAdTypes(EJXAdType_toString, EJXAdType_members);
constexpr JXTextTable kAdLoadTypes(EJXAdLoadType_toString, EJXAdLoadType_members);

}  // namespace

std::shared_ptr<JXVideoAdEvent> JXVideoAdEvent::initWithMode_andSessionId(
    EJXVideoAdMode mode, const JXString& sessionId) {
  std::shared_ptr<JXVideoAdEvent> event(new JXVideoAdEvent());
  event->setName(kModes.textOf(mode));
  event->setVideoSessionID(sessionId);
  return event;
}

const JXEventClass& JXVideoAdEvent::eventClass() {
  static const auto& fields = *new JXFields<JXVideoAdEvent>{
      {JXV_AD_ASSET_ID, "adAssetID", &JXVideoAdEvent::adAssetID_},
      {JXV_AD_POD_ID, "adPodID", &JXVideoAdEvent::adPodID_},
      {JXV_POD_POSITION, "podPosition", &JXVideoAdEvent::podPosition_},
      {JXV_POD_LENGTH, "podLength", &JXVideoAdEvent::podLength_},
      {JXV_AD_QUARTILE, "adQuartile", &JXVideoAdEvent::adQuartile_},
      {JXV_AD_TYPE, "adType", JXChoice<JXVideoAdEvent>{&JXVideoAdEvent::adType_, kAdTypes}},
      {JXV_LOAD_TYPE, "loadType",
       JXChoice<JXVideoAdEvent>{&JXVideoAdEvent::loadType_, kAdLoadTypes}},
  };
  static const auto& type = *new JXEventClass{
      "JXVideoAdEvent",
      &JXVideoEvent::eventClass(),
      kModes.allTexts(),
      &fields,
      {
          usable(JXV_VIDEO_SESSION_ID),
          usable(JXV_AD_ASSET_ID),
          usable(JXV_AD_POD_ID),
          present(JXV_CURSOR_POSITION),
          present(JXV_TOTAL_LENGTH),
      },
      makeByMode<JXVideoAdEvent, EJXVideoAdMode>,
      kModes.allMembers(),
  };
  return type;
}

}  // namespace jx
