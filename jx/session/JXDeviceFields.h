// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXDynamicStore.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The fields of JXDevice. Thread-safe: the session's mutex guards them.
class JX_API JXDeviceFields : public JXAdditionalProperties {
 public:
  /// "1" if advertising tracking is allowed. Any other non-empty string counts as not allowed; null
  /// and "" omit "ad_tracking".
  JXString adTrackingEnabled() const { return JXSessionLock::read(adTrackingEnabled_); }
  void setAdTrackingEnabled(const JXString& value) {
    JXSessionLock::write(adTrackingEnabled_, value);
  }
  /// The user agent; null until it is known.
  JXString user_agent() const { return JXSessionLock::read(user_agent_); }
  void setUser_agent(const JXString& value) { JXSessionLock::write(user_agent_, value); }
  /// The advertising identifier; null before `setAdvertisingIds`.
  JXString IDFA() const { return JXSessionLock::read(IDFA_); }
  void setIDFA(const JXString& value) { JXSessionLock::write(IDFA_, value); }
  /// The vendor identifier; null before `setAdvertisingIds`.
  JXString IDFV() const { return JXSessionLock::read(IDFV_); }
  void setIDFV(const JXString& value) { JXSessionLock::write(IDFV_, value); }
  /// A random UUID, created at the first start of the installation. Null if the block was created
  /// before the first `ServerSide`.
  JXString sdkID() const { return JXSessionLock::read(sdkID_); }
  void setSdkID(const JXString& value) { JXSessionLock::write(sdkID_, value); }
  /// The first part of the preferred language tag; "-" if the tag has no second part.
  JXString language() const { return JXSessionLock::read(language_); }
  void setLanguage(const JXString& value) { JXSessionLock::write(language_, value); }
  /// The second part of the preferred language tag; "-" if the tag has no second part.
  JXString region() const { return JXSessionLock::read(region_); }
  void setRegion(const JXString& value) { JXSessionLock::write(region_, value); }
  /// The manufacturer's name.
  JXString manufacturer() const { return JXSessionLock::read(manufacturer_); }
  void setManufacturer(const JXString& value) { JXSessionLock::write(manufacturer_, value); }
  /// The hardware machine identifier.
  JXString model() const { return JXSessionLock::read(model_); }
  void setModel(const JXString& value) { JXSessionLock::write(model_, value); }
  /// The marketing model of the device.
  JXString name() const { return JXSessionLock::read(name_); }
  void setName(const JXString& value) { JXSessionLock::write(name_, value); }
  /// The runtime name: "tvos".
  JXString type() const { return JXSessionLock::read(type_); }
  void setType(const JXString& value) { JXSessionLock::write(type_, value); }
  /// The runtime name, written to the "os" object.
  JXString osName() const { return JXSessionLock::read(osName_); }
  void setOsName(const JXString& value) { JXSessionLock::write(osName_, value); }
  /// The operating system version.
  JXString osVersion() const { return JXSessionLock::read(osVersion_); }
  void setOsVersion(const JXString& value) { JXSessionLock::write(osVersion_, value); }
  /// The screen width in points.
  std::optional<JXDecimal> screenWidth() const { return JXSessionLock::read(screenWidth_); }
  void setScreenWidth(const std::optional<JXDecimal>& value) {
    JXSessionLock::write(screenWidth_, value);
  }
  /// The screen height in points.
  std::optional<JXDecimal> screenHeight() const { return JXSessionLock::read(screenHeight_); }
  void setScreenHeight(const std::optional<JXDecimal>& value) {
    JXSessionLock::write(screenHeight_, value);
  }
  /// The IANA time zone name, such as "Asia/Tokyo".
  JXString timezone() const { return JXSessionLock::read(timezone_); }
  void setTimezone(const JXString& value) { JXSessionLock::write(timezone_, value); }

 protected:
  JXDeviceFields() : JXAdditionalProperties(Sharing::AnyThread) {}

  /// Copies the predefined variables to the fields. A string that is not a number leaves a number
  /// unchanged.
  void readVariables();
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString adTrackingEnabled_;
  JXString user_agent_;
  JXString IDFA_;
  JXString IDFV_;
  JXString sdkID_;
  JXString language_;
  JXString region_;
  JXString manufacturer_;
  JXString model_;
  JXString name_;
  JXString type_;
  JXString osName_;
  JXString osVersion_;
  std::optional<JXDecimal> screenWidth_;
  std::optional<JXDecimal> screenHeight_;
  JXString timezone_;
  std::shared_ptr<JXAdditionalProperties> osProperties_;  ///< null until the block is initialised
  std::shared_ptr<JXAdditionalProperties>
      screenProperties_;  ///< null until the block is initialised

 private:
  JXDynamicStore::Place places_[11];  ///< of the variables in the store
};

}  // namespace jx
