// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonArray.h"
#include "jx/events/video/JXVideoEvent.h"
#include "jx/events/video/JXVideoModes.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// What the player does: start, pause, buffering, seeking, completion. It may span several assets
/// and pods, so those are lists.
class JX_API JXVideoPlaybackEvent final : public JXVideoEvent {
 public:
  /// The mode chooses the event's name; a mode outside its enumeration gives an event without one.
  static std::shared_ptr<JXVideoPlaybackEvent> initWithMode_andSessionId(EJXVideoPlaybackMode mode,
                                                                         const JXString& sessionId);

  /// True when the video fills the screen. Always written.
  bool fullScreen() const { return fullScreen_; }
  void setFullScreen(bool value) { fullScreen_ = value; }
  /// True when advertisements may run. Always written.
  bool adEnabled() const { return adEnabled_; }
  void setAdEnabled(bool value) { adEnabled_ = value; }
  /// True when the video is live. Always written.
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  /// The event's own list, empty at first: append to it. An absent list is not written.
  JXJsonArray contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXJsonArray& value) { contentAssetID_ = value; }
  /// The parts of the content that the playback spans. As the lists above.
  JXJsonArray contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXJsonArray& value) { contentPodID_ = value; }
  /// The advertisements that the playback spans. As the lists above.
  JXJsonArray adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXJsonArray& value) { adAssetID_ = value; }
  /// The breaks that the playback spans. As the lists above.
  JXJsonArray adPodID() const { return adPodID_; }
  void setAdPodID(const JXJsonArray& value) { adPodID_ = value; }
  /// Free text; historically without the capital T of the other video events.
  const JXString& adtype() const { return adtype_; }
  void setAdtype(const JXString& value) { adtype_ = value; }
  /// Where a seek begins or ends, in the unit of cursorPosition.
  const std::optional<JXDecimal>& seekPosition() const { return seekPosition_; }
  void setSeekPosition(const std::optional<JXDecimal>& value) { seekPosition_ = value; }
  /// The bit rate, in the unit that the host uses throughout: written as it is given.
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  /// Frames a second.
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }
  /// The name of the player.
  const JXString& videoPlayer() const { return videoPlayer_; }
  void setVideoPlayer(const JXString& value) { videoPlayer_ = value; }
  /// The volume, on the scale that the host uses throughout.
  const std::optional<JXDecimal>& sound() const { return sound_; }
  void setSound(const std::optional<JXDecimal>& value) { sound_ = value; }
  /// A free text for the picture, such as "2160p".
  const JXString& imageQuality() const { return imageQuality_; }
  void setImageQuality(const JXString& value) { imageQuality_ = value; }
  /// A free text for what interrupted the video.
  const JXString& interruptionMethod() const { return interruptionMethod_; }
  void setInterruptionMethod(const JXString& value) { interruptionMethod_ = value; }
  /// A free text for the kind of video.
  const JXString& videoCategory() const { return videoCategory_; }
  void setVideoCategory(const JXString& value) { videoCategory_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXVideoPlaybackEvent() = default;

  bool fullScreen_ = false;
  bool adEnabled_ = false;
  bool livestream_ = false;
  JXJsonArray contentAssetID_;
  JXJsonArray contentPodID_;
  JXJsonArray adAssetID_;
  JXJsonArray adPodID_;
  JXString adtype_;
  std::optional<JXDecimal> seekPosition_;
  std::optional<JXDecimal> bitrate_;
  std::optional<JXDecimal> framerate_;
  JXString videoPlayer_;
  std::optional<JXDecimal> sound_;
  JXString imageQuality_;
  JXString interruptionMethod_;
  JXString videoCategory_;
};

}  // namespace jx
