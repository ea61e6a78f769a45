// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/video/JXAdTypes.h"
#include "jx/events/video/JXVideoEvent.h"
#include "jx/events/video/JXVideoModes.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A change in an advertisement or ad break: start, progress, stop, completion, skip or click. The
/// ad type and load type are always written, by default as "pre-roll" and "dynamic"; only a value
/// outside its enumeration is not written.
class JX_API JXVideoAdEvent final : public JXVideoEvent {
 public:
  /// Creates an event named after its mode. A mode outside the enumeration yields an event without
  /// a name. `sessionId` is the video session ID.
  static std::shared_ptr<JXVideoAdEvent> initWithMode_andSessionId(EJXVideoAdMode mode,
                                                                   const JXString& sessionId);
  /// Deleted, because an event of this class needs a mode.
  static std::shared_ptr<JXVideoAdEvent> init() = delete;

  /// The type of the advertisement. A value outside the enumeration is stored but not written.
  EJXAdType adType() const { return static_cast<EJXAdType>(adType_); }
  void setAdType(EJXAdType value) { adType_ = value; }
  /// The load type of the advertisement. A value outside the enumeration is stored but not written.
  EJXAdLoadType loadType() const { return static_cast<EJXAdLoadType>(loadType_); }
  void setLoadType(EJXAdLoadType value) { loadType_ = value; }
  /// The identifier of the advertisement.
  const JXString& adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXString& value) { adAssetID_ = value; }
  /// The identifier of the ad pod, the break that contains the advertisement.
  const JXString& adPodID() const { return adPodID_; }
  void setAdPodID(const JXString& value) { adPodID_ = value; }
  /// The position of the advertisement in its break.
  const std::optional<JXDecimal>& podPosition() const { return podPosition_; }
  void setPodPosition(const std::optional<JXDecimal>& value) { podPosition_ = value; }
  /// The length of the break, in the unit that the application chooses.
  const std::optional<JXDecimal>& podLength() const { return podLength_; }
  void setPodLength(const std::optional<JXDecimal>& value) { podLength_ = value; }
  /// The quarter of the advertisement that was reached, from 1 to 4. The range is not validated.
  const std::optional<JXDecimal>& adQuartile() const { return adQuartile_; }
  void setAdQuartile(const std::optional<JXDecimal>& value) { adQuartile_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXVideoAdEvent(InitKey) {}

 private:
  int adType_ = EJXAdType_PRE_ROLL;
  int loadType_ = EJXAdLoadType_DYNAMIC;
  JXString adAssetID_;
  JXString adPodID_;
  std::optional<JXDecimal> podPosition_;
  std::optional<JXDecimal> podLength_;
  std::optional<JXDecimal> adQuartile_;
};

}  // namespace jx
