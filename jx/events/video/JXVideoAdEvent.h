// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
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

/// What happens to an advertisement or a break. Its types are always written: "pre-roll" and
/// "dynamic" when they were never set.
class JX_API JXVideoAdEvent final : public JXVideoEvent {
 public:
  /// The mode chooses the event's name; a mode outside its enumeration gives an event without one.
  static std::shared_ptr<JXVideoAdEvent> initWithMode_andSessionId(EJXVideoAdMode mode,
                                                                   const JXString& sessionId);

  /// A value outside the enumeration is kept and not written.
  EJXAdType adType() const { return static_cast<EJXAdType>(adType_); }
  void setAdType(EJXAdType value) { adType_ = value; }
  /// A value outside the enumeration is kept and not written.
  EJXAdLoadType loadType() const { return static_cast<EJXAdLoadType>(loadType_); }
  void setLoadType(EJXAdLoadType value) { loadType_ = value; }
  /// The identifier of the advertisement.
  const JXString& adAssetID() const { return adAssetID_; }
  void setAdAssetID(const JXString& value) { adAssetID_ = value; }
  /// The identifier of the break that the advertisement runs in.
  const JXString& adPodID() const { return adPodID_; }
  void setAdPodID(const JXString& value) { adPodID_ = value; }
  /// The place of the advertisement in its break.
  const std::optional<JXDecimal>& podPosition() const { return podPosition_; }
  void setPodPosition(const std::optional<JXDecimal>& value) { podPosition_ = value; }
  /// The length of the break, as the host counts it.
  const std::optional<JXDecimal>& podLength() const { return podLength_; }
  void setPodLength(const std::optional<JXDecimal>& value) { podLength_ = value; }
  /// The quarter of the advertisement that was reached, 1 to 4; it is not checked.
  const std::optional<JXDecimal>& adQuartile() const { return adQuartile_; }
  void setAdQuartile(const std::optional<JXDecimal>& value) { adQuartile_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXVideoAdEvent() = default;

  int adType_ = EJXAdType_PRE_ROLL;
  int loadType_ = EJXAdLoadType_DYNAMIC;
  JXString adAssetID_;
  JXString adPodID_;
  std::optional<JXDecimal> podPosition_;
  std::optional<JXDecimal> podLength_;
  std::optional<JXDecimal> adQuartile_;
};

}  // namespace jx
