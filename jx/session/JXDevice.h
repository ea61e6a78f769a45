// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The device block: device, operating system, screen, network, advertising identifiers and user
/// agent, with the lifecycle block nested in it. The device's identity is read once, when the
/// object is initialised. `setAdvertisingIds` reads the advertising values. The user agent is read
/// once it is known. Thread-safe.
class JX_API JXDevice : public JXAdditionalProperties {
 public:
  /// Returns the shared block of this process. The first call creates it and reads the values.
  ///
  /// Create a `ServerSide` first. It makes the SDK ID available; a block created before the first
  /// `ServerSide` has a null `sdkID` and events omit "sdk_id", until `reinit` or `setSdkID` is
  /// called.
  static JXDevice& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXDevice() : JXAdditionalProperties(Sharing::AnyThread) {}
  /// Reads the values once per process and returns this object; an object created after the shared
  /// one is returned unchanged. Returns null if the base class cannot be initialised. Does not
  /// return while another `init` is running.
  JXDevice* init();
  /// Reads the values again. Properties that the application added to the "os" and "screen" objects
  /// are removed; other additional properties, the advertising values and the user agent are kept.
  JXDevice* reinit();

  /// Copies the tracking permission and both identifiers from the core's variables.
  void setAdvertisingIds();
  /// Returns the additional properties of the nested "os" object; null before `init`.
  std::shared_ptr<JXAdditionalProperties> getOsProperties() const {
    return JXSessionLock::read(osProperties_);
  }
  /// Returns the additional properties of the nested "screen" object; null before `init`.
  std::shared_ptr<JXAdditionalProperties> getScreenProperties() const {
    return JXSessionLock::read(screenProperties_);
  }
  /// Returns the same object as `getOsProperties`.
  std::shared_ptr<JXAdditionalProperties> osProperties() const { return getOsProperties(); }
  /// Returns the same object as `getScreenProperties`.
  std::shared_ptr<JXAdditionalProperties> screenProperties() const { return getScreenProperties(); }
  /// Reads the user agent if it is still null, and refreshes the lifecycle block.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

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
  /// The IANA time zone name, such as "Asia/Tokyo".
  JXString timezone() const { return JXSessionLock::read(timezone_); }
  void setTimezone(const JXString& value) { JXSessionLock::write(timezone_, value); }
  /// The advertising identifier; null before `setAdvertisingIds`.
  JXString IDFA() const { return JXSessionLock::read(IDFA_); }
  void setIDFA(const JXString& value) { JXSessionLock::write(IDFA_, value); }
  /// The vendor identifier; null before `setAdvertisingIds`.
  JXString IDFV() const { return JXSessionLock::read(IDFV_); }
  void setIDFV(const JXString& value) { JXSessionLock::write(IDFV_, value); }
  /// "1" if advertising tracking is allowed. Any other non-empty string counts as not allowed; null
  /// and "" omit "ad_tracking".
  JXString adTrackingEnabled() const { return JXSessionLock::read(adTrackingEnabled_); }
  void setAdTrackingEnabled(const JXString& value) {
    JXSessionLock::write(adTrackingEnabled_, value);
  }
  /// The user agent; null until it is known.
  JXString user_agent() const { return JXSessionLock::read(user_agent_); }
  void setUser_agent(const JXString& value) { JXSessionLock::write(user_agent_, value); }
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

 private:
  void writeOwnEntries(JXJsonSink& sink) const override;
  void writeOs(JXJsonSink& sink) const;
  void writeScreen(JXJsonSink& sink) const;

  JXString sdkID_;
  JXString language_;
  JXString region_;
  JXString manufacturer_;
  JXString model_;
  JXString name_;
  JXString type_;
  JXString timezone_;
  JXString IDFA_;
  JXString IDFV_;
  JXString adTrackingEnabled_;
  JXString user_agent_;
  JXString osName_;
  JXString osVersion_;
  std::optional<JXDecimal> screenWidth_;
  std::optional<JXDecimal> screenHeight_;
  std::shared_ptr<JXAdditionalProperties> osProperties_;
  std::shared_ptr<JXAdditionalProperties> screenProperties_;
};

}  // namespace jx
