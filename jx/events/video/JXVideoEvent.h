// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Base of the video events: the fields that describe the video session. This class itself has no
/// event name and never passes validation.
class JX_API JXVideoEvent : public JXEvent {
 public:
  /// Creates an event without a name and without a video session ID.
  static std::shared_ptr<JXVideoEvent> init();

  /// The video session ID; the same string in all events of a session.
  const JXString& videoSessionID() const { return videoSessionID_; }
  void setVideoSessionID(const JXString& value) { videoSessionID_ = value; }
  /// The position of the playhead, in the unit of `totalLength`.
  const std::optional<JXDecimal>& cursorPosition() const { return cursorPosition_; }
  void setCursorPosition(const std::optional<JXDecimal>& value) { cursorPosition_ = value; }
  /// The length of the video, preferably in seconds; written unchanged.
  const std::optional<JXDecimal>& totalLength() const { return totalLength_; }
  void setTotalLength(const std::optional<JXDecimal>& value) { totalLength_ = value; }
  /// The title of the video.
  const JXString& videoTitle() const { return videoTitle_; }
  void setVideoTitle(const JXString& value) { videoTitle_ = value; }
  /// The publisher of the video.
  const JXString& publisher() const { return publisher_; }
  void setPublisher(const JXString& value) { publisher_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXVideoEvent(InitKey) : JXVideoEvent() {}

 protected:
  JXVideoEvent() = default;
  /// Sets the name to the string of the mode. Logs a mode outside the enumeration, which leaves the
  /// event without a name.
  void setNameOfMode(const JXEnumStrings& modes, int mode);

  JXString videoSessionID_;
  std::optional<JXDecimal> cursorPosition_;
  std::optional<JXDecimal> totalLength_;
  JXString videoTitle_;
  JXString publisher_;
};

}  // namespace jx
