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

/// The progress of the content: start, playback, a quarter reached, completion. `totalLength` is
/// written once, with the fields of JXVideoEvent.
class JX_API JXVideoContentEvent final : public JXVideoEvent {
 public:
  /// Creates an event named after its mode. A mode outside the enumeration yields an event without
  /// a name. `sessionId` is the video session ID.
  static std::shared_ptr<JXVideoContentEvent> initWithMode_andSessionId(EJXVideoContentMode mode,
                                                                        const JXString& sessionId);
  /// Deleted, because an event of this class needs a mode.
  static std::shared_ptr<JXVideoContentEvent> init() = delete;

  /// True if the video is a full episode, not a part of it. Always written.
  bool fullEpisode() const { return fullEpisode_; }
  void setFullEpisode(bool value) { fullEpisode_ = value; }
  /// True if the video is live. Always written.
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  /// The identifier of the content pod, a part of the content.
  const JXString& contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXString& value) { contentPodID_ = value; }
  /// A description of the video.
  const JXString& videoDescription() const { return videoDescription_; }
  void setVideoDescription(const JXString& value) { videoDescription_ = value; }
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
  /// The date of the first broadcast, a string in the format that the application chooses. The
  /// capital D is historic: JXVideoSettingEvent has `airdate`.
  const JXString& airDate() const { return airDate_; }
  void setAirDate(const JXString& value) { airDate_ = value; }
  /// The identifier of the content.
  const JXString& contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXString& value) { contentAssetID_ = value; }
  /// The event's keywords, initially an empty list; callers may append to it. A null list is not
  /// written.
  JXJsonArray keywords() const { return keywords_; }
  void setKeywords(const JXJsonArray& value) { keywords_ = value; }
  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  /// The frame rate, in frames per second.
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXVideoContentEvent(InitKey) {}

 private:
  bool fullEpisode_ = false;
  bool livestream_ = false;
  JXString contentPodID_;
  JXString videoDescription_;
  JXString season_;
  JXString episode_;
  JXString videoCategory_;
  JXString program_;
  JXString channel_;
  JXString airDate_;
  JXString contentAssetID_;
  JXJsonArray keywords_;
  std::optional<JXDecimal> bitrate_;
  std::optional<JXDecimal> framerate_;
};

}  // namespace jx
