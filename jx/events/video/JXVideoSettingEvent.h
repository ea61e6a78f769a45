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

/// The viewer changed the volume, the speed, the subtitles, the picture, or shared the video.
class JX_API JXVideoSettingEvent final : public JXVideoEvent {
 public:
  /// The mode chooses the event's name; a mode outside its enumeration gives an event without one.
  static std::shared_ptr<JXVideoSettingEvent> initWithMode_andSessionId(EJXVideoSettingMode mode,
                                                                        const JXString& sessionId);

  bool fullEpisode() const { return fullEpisode_; }
  void setFullEpisode(bool value) { fullEpisode_ = value; }
  bool livestream() const { return livestream_; }
  void setLivestream(bool value) { livestream_ = value; }
  bool fullScreen() const { return fullScreen_; }
  void setFullScreen(bool value) { fullScreen_ = value; }
  bool adEnabled() const { return adEnabled_; }
  void setAdEnabled(bool value) { adEnabled_ = value; }
  const JXString& contentPodID() const { return contentPodID_; }
  void setContentPodID(const JXString& value) { contentPodID_ = value; }
  const JXString& contentAssetID() const { return contentAssetID_; }
  void setContentAssetID(const JXString& value) { contentAssetID_ = value; }
  const JXString& adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXString& value) { adAssetID_ = value; }
  const JXString& adPodID() const { return adPodID_; }
  void setAdPodID(const JXString& value) { adPodID_ = value; }
  /// Free text here.
  const JXString& adType() const { return adType_; }
  void setAdType(const JXString& value) { adType_ = value; }
  const JXString& videoDescription() const { return videoDescription_; }
  void setVideoDescription(const JXString& value) { videoDescription_ = value; }
  /// The event's own list, empty at first: append to it. An absent list is not written.
  JXJsonArray keywords() const { return keywords_; }
  void setKeywords(const JXJsonArray& value) { keywords_ = value; }
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
  const JXString& airdate() const { return airdate_; }
  void setAirdate(const JXString& value) { airdate_ = value; }
  const std::optional<JXDecimal>& bitrate() const { return bitrate_; }
  void setBitrate(const std::optional<JXDecimal>& value) { bitrate_ = value; }
  const std::optional<JXDecimal>& framerate() const { return framerate_; }
  void setFramerate(const std::optional<JXDecimal>& value) { framerate_ = value; }
  const std::optional<JXDecimal>& sound() const { return sound_; }
  void setSound(const std::optional<JXDecimal>& value) { sound_ = value; }
  const JXString& imageQuality() const { return imageQuality_; }
  void setImageQuality(const JXString& value) { imageQuality_ = value; }

  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXVideoSettingEvent() = default;

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
