// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#include "jx/events/video/JXVideoEvent.h"

#include <string>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXLogger.h"

namespace jx {

std::shared_ptr<JXVideoEvent> JXVideoEvent::init() { return make<JXVideoEvent>(); }

void JXVideoEvent::setNameOfMode(const JXEnumStrings& modes, int mode) {
  setName(modes.stringOf(mode));
  if (name().isPresent()) return;
  JXLogger::sharedInstance().logMessage_withLevel(
      std::string(ownEventClass().className) + ": mode " + std::to_string(mode) +
          " is outside its enumeration; event has no name",
      3);
}

const JXEventClass& JXVideoEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXVideoEvent>(
      JXEvent::eventClass(), "JXVideoEvent", {},
      {
          {JXV_VIDEO_SESSION_ID, "videoSessionID", &JXVideoEvent::videoSessionID_},
          {JXV_CURSOR_POSITION, "cursorPosition", &JXVideoEvent::cursorPosition_},
          {JXV_TOTAL_LENGTH, "totalLength", &JXVideoEvent::totalLength_},
          {JXV_VIDEO_TITLE, "videoTitle", &JXVideoEvent::videoTitle_},
          {JXV_PUBLISHER, "publisher", &JXVideoEvent::publisher_},
      },
      {
          neverValid(),
      });
  return type;
}

}  // namespace jx
