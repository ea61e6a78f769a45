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

/// The viewer changed the volume, speed, subtitles, full-screen mode or quality, or shared the
/// video.
class JX_API JXVideoSettingEvent final : public JXVideoEvent {
 public:
  /// Creates an event named after its mode. A mode outside the enumeration yields an event without
  /// a name. `sessionId` is the video session ID.
  static std::shared_ptr<JXVideoSettingEvent> initWithMode_andSessionId(EJXVideoSettingMode mode,
                                                                        const JXString& sessionId);
  /// Deleted, because an event of this class needs a mode.
  static std::shared_ptr<JXVideoSettingEvent> init() = delete;

  /// True if the video is a full episode, not a part of it. Always written.
  bool fullEpisode() const { return fullEpisode_; }
  void setFullEpisode(bool value) { fullEpisode_ = value; }
  /// True if the video is live. Always written.
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  /// True if the video fills the screen. Always written.
  bool fullScreen() const { return fullScreen_; }
  void setFullScreen(bool value) { fullScreen_ = value; }
  /// True if advertisements are enabled. Always written.
  bool adEnabled() const { return adEnabled_; }
  void setAdEnabled(bool value) { adEnabled_ = value; }
  /// The identifier of the content pod, a part of the content.
  const JXString& contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXString& value) { contentPodID_ = value; }
  /// The identifier of the content.
  const JXString& contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXString& value) { contentAssetID_ = value; }
  /// The identifier of the advertisement.
  const JXString& adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXString& value) { adAssetID_ = value; }
  /// The identifier of the ad pod, the break that contains the advertisement.
  const JXString& adPodID() const { return adPodID_; }
  void setAdPodID(const JXString& value) { adPodID_ = value; }
  /// The type of the advertisement, a free-form string.
  const JXString& adType() const { return adType_; }
  void setAdType(const JXString& value) { adType_ = value; }
  /// A description of the video.
  const JXString& videoDescription() const { return videoDescription_; }
  void setVideoDescription(const JXString& value) { videoDescription_ = value; }
  /// The event's keywords, initially an empty list; callers may append to it. A null list is not
  /// written.
  JXJsonArray keywords() const { return keywords_; }
  void setKeywords(const JXJsonArray& value) { keywords_ = value; }
  /// The season, as the application names it.
  const JXString& season() const { return season_; }
  void setSeason(const JXString& value) { season_ = value; }
  /// The episode, as the application names it.
  const JXString& episode() const { return episode_; }
  void setEpisode(const JXString& value) { episode_ = value; }
  /// The category of the video, a free-form string.
  const JXString& videoCategory() const { return videoCategory_; }
  void setVideoCategory(const JXString& value) { videoCategory_ = value; }
  /// The program that the video belongs to.
  const JXString& program() const { return program_; }
  void setProgram(const JXString& value) { program_ = value; }
  /// The channel that shows the video.
  const JXString& channel() const { return channel_; }
  void setChannel(const JXString& value) { channel_ = value; }
  /// The date of the first broadcast, a string in the format that the application chooses.
  const JXString& airdate() const { return airdate_; }
  void setAirdate(const JXString& value) { airdate_ = value; }
  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  /// The frame rate, in frames per second.
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }
  /// The volume, on the scale that the application uses for all events.
  const std::optional<JXDecimal>& sound() const { return sound_; }
  void setSound(const std::optional<JXDecimal>& value) { sound_ = value; }
  /// The image quality, a free-form string such as "2160p".
  const JXString& imageQuality() const { return imageQuality_; }
  void setImageQuality(const JXString& value) { imageQuality_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXVideoSettingEvent(InitKey) {}

 private:
  bool fullEpisode_ = false;
  bool livestream_ = false;
  bool fullScreen_ = false;
  bool adEnabled_ = false;
  JXString contentPodID_;
  JXString contentAssetID_;
  JXString adAssetID_;
  JXString adPodID_;
  JXString adType_;
  JXString videoDescription_;
  JXJsonArray keywords_;
  JXString season_;
  JXString episode_;
  JXString videoCategory_;
  JXString program_;
  JXString channel_;
  JXString airdate_;
  std::optional<JXDecimal> bitrate_;
  std::optional<JXDecimal> framerate_;
  std::optional<JXDecimal> sound_;
  JXString imageQuality_;
};

}  // namespace jx
