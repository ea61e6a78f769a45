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

/// How far the content has come.
class JX_API JXVideoContentEvent final : public JXVideoEvent {
 public:
  /// The mode chooses the event's name; a mode outside its enumeration gives an event without one.
  static std::shared_ptr<JXVideoContentEvent> initWithMode_andSessionId(EJXVideoContentMode mode,
                                                                        const JXString& sessionId);

  bool fullEpisode() const { return fullEpisode_; }
  void setFullEpisode(bool value) { fullEpisode_ = value; }
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  const JXString& contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXString& value) { contentPodID_ = value; }
  const JXString& videoDescription() const { return videoDescription_; }
  void setVideoDescription(const JXString& value) { videoDescription_ = value; }
  const JXString& season() const { return season_; }
  void setSeason(const JXString& value) { season_ = value; }
  const JXString& episode() const { return episode_; }
  void setEpisode(const JXString& value) { episode_ = value; }
  const JXString& videoCategory() const { return videoCategory_; }
  void setVideoCategory(const JXString& value) { videoCategory_ = value; }
  const JXString& program() const { return program_; }
  void setProgram(const JXString& value) { program_ = value; }
  const JXString& channel() const { return channel_; }
  void setChannel(const JXString& value) { channel_ = value; }
  /// Historically with a capital D, unlike the setting event's.
  const JXString& airDate() const { return airDate_; }
  void setAirDate(const JXString& value) { airDate_ = value; }
  const JXString& contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXString& value) { contentAssetID_ = value; }
  /// The event's own list, empty at first: append to it. An absent list is not written.
  JXJsonArray keywords() const { return keywords_; }
  void setKeywords(const JXJsonArray& value) { keywords_ = value; }
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }

  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXVideoContentEvent() = default;

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
