// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
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

/// A change in the playback: start, pause, resume, error, buffering, seeking or completion.
/// Playback may span several assets and pods, so these are lists.
class JX_API JXVideoPlaybackEvent final : public JXVideoEvent {
 public:
  /// Creates an event named after its mode. A mode outside the enumeration yields an event without
  /// a name. `sessionId` is the video session ID.
  static std::shared_ptr<JXVideoPlaybackEvent> initWithMode_andSessionId(EJXVideoPlaybackMode mode,
                                                                         const JXString& sessionId);
  /// Deleted, because an event of this class needs a mode.
  static std::shared_ptr<JXVideoPlaybackEvent> init() = delete;

  /// True if the video fills the screen. Always written.
  bool fullScreen() const { return fullScreen_; }
  void setFullScreen(bool value) { fullScreen_ = value; }
  /// True if advertisements are enabled. Always written.
  bool adEnabled() const { return adEnabled_; }
  void setAdEnabled(bool value) { adEnabled_ = value; }
  /// True if the video is live. Always written.
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  /// The content assets of the playback, initially an empty list; callers may append to it. A null
  /// list is not written.
  JXJsonArray contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXJsonArray& value) { contentAssetID_ = value; }
  /// The content pods of the playback; same rules as `contentAssetID`.
  JXJsonArray contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXJsonArray& value) { contentPodID_ = value; }
  /// The advertisements of the playback; same rules as `contentAssetID`.
  JXJsonArray adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXJsonArray& value) { adAssetID_ = value; }
  /// The ad breaks of the playback; same rules as `contentAssetID`.
  JXJsonArray adPodID() const { return adPodID_; }
  void setAdPodID(const JXJsonArray& value) { adPodID_ = value; }
  /// The type of the advertisement, a free-form string. The lower-case t is historic: the other
  /// video events have `adType`.
  const JXString& adtype() const { return adtype_; }
  void setAdtype(const JXString& value) { adtype_ = value; }
  /// The start or end position of a seek, in the unit of `cursorPosition`.
  const std::optional<JXDecimal>& seekPosition() const { return seekPosition_; }
  void setSeekPosition(const std::optional<JXDecimal>& value) { seekPosition_ = value; }
  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  /// The frame rate, in frames per second.
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }
  /// The name of the player.
  const JXString& videoPlayer() const { return videoPlayer_; }
  void setVideoPlayer(const JXString& value) { videoPlayer_ = value; }
  /// The volume, on the scale that the application uses for all events.
  const std::optional<JXDecimal>& sound() const { return sound_; }
  void setSound(const std::optional<JXDecimal>& value) { sound_ = value; }
  /// The image quality, a free-form string such as "2160p".
  const JXString& imageQuality() const { return imageQuality_; }
  void setImageQuality(const JXString& value) { imageQuality_ = value; }
  /// The cause of an interruption of the video, a free-form string.
  const JXString& interruptionMethod() const { return interruptionMethod_; }
  void setInterruptionMethod(const JXString& value) { interruptionMethod_ = value; }
  /// The category of the video, a free-form string.
  const JXString& videoCategory() const { return videoCategory_; }
  void setVideoCategory(const JXString& value) { videoCategory_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXVideoPlaybackEvent(InitKey) {}

 private:
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
