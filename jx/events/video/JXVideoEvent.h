// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Base of the video events: what each of them tells about its video session. On its own it has no
/// name and is never complete.
class JX_API JXVideoEvent : public JXEvent {
 public:
  /// A new event without a name and without a video session.
  static std::shared_ptr<JXVideoEvent> init();

  /// Which video session this is; the same text in all its events.
  const JXString& videoSessionID() const { return videoSessionID_; }
  void setVideoSessionID(const JXString& value) { videoSessionID_ = value; }
  /// Position of the playhead, in the unit of `totalLength`.
  const std::optional<JXDecimal>& cursorPosition() const { return cursorPosition_; }
  void setCursorPosition(const std::optional<JXDecimal>& value) { cursorPosition_ = value; }
  /// Length of the video, best in seconds: it is written as it is given.
  const std::optional<JXDecimal>& totalLength() const { return totalLength_; }
  void setTotalLength(const std::optional<JXDecimal>& value) { totalLength_ = value; }
  /// The title of the video.
  const JXString& videoTitle() const { return videoTitle_; }
  void setVideoTitle(const JXString& value) { videoTitle_ = value; }
  /// Who publishes the video.
  const JXString& publisher() const { return publisher_; }
  void setPublisher(const JXString& value) { publisher_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 protected:
  JXVideoEvent() = default;

  JXString videoSessionID_;
  std::optional<JXDecimal> cursorPosition_;
  std::optional<JXDecimal> totalLength_;
  JXString videoTitle_;
  JXString publisher_;
};

}  // namespace jx
