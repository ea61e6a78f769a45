// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The device block: device, operating system, screen, network, advertising identifiers and user
/// agent, with the lifecycle block nested in it. The device's identity is read once, when the
/// object is initialised. `setAdvertisingIds` reads the advertising values. The user agent is read
/// once it is known. Use the block only on the thread that executes events.
class JX_API JXDevice : public JXAdditionalProperties {
 public:
  /// Returns the shared block of this process. The first call creates it and reads the values.
  ///
  /// Create a `ServerSide` first. It makes the SDK ID available; a block created before the first
  /// `ServerSide` has a null `sdkID` and events omit "sdk_id", until `reinit` or `setSdkID` is
  /// called.
  static JXDevice& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXDevice() = default;
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
  const std::shared_ptr<JXAdditionalProperties>& getOsProperties() const { return osProperties_; }
  /// Returns the additional properties of the nested "screen" object; null before `init`.
  const std::shared_ptr<JXAdditionalProperties>& getScreenProperties() const {
    return screenProperties_;
  }
  /// Reads the user agent if it is still null, and refreshes the lifecycle block.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

  /// A random UUID, created at the first start of the installation. Null if the block was created
  /// before the first `ServerSide`.
  const JXString& sdkID() const { return sdkID_; }
  void setSdkID(const JXString& value) { sdkID_ = value; }
  /// The first part of the preferred language tag; "-" if the tag has no second part.
  const JXString& language() const { return language_; }
  void setLanguage(const JXString& value) { language_ = value; }
  /// The second part of the preferred language tag; "-" if the tag has no second part.
  const JXString& region() const { return region_; }
  void setRegion(const JXString& value) { region_ = value; }
  /// The manufacturer's name.
  const JXString& manufacturer() const { return manufacturer_; }
  void setManufacturer(const JXString& value) { manufacturer_ = value; }
  /// The hardware machine identifier.
  const JXString& model() const { return model_; }
  void setModel(const JXString& value) { model_ = value; }
  /// The marketing model of the device.
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The runtime name: "tvos".
  const JXString& type() const { return type_; }
  void setType(const JXString& value) { type_ = value; }
  /// The IANA time zone name, such as "Asia/Tokyo".
  const JXString& timezone() const { return timezone_; }
  void setTimezone(const JXString& value) { timezone_ = value; }
  /// The advertising identifier; null before `setAdvertisingIds`.
  const JXString& IDFA() const { return IDFA_; }
  void setIDFA(const JXString& value) { IDFA_ = value; }
  /// The vendor identifier; null before `setAdvertisingIds`.
  const JXString& IDFV() const { return IDFV_; }
  void setIDFV(const JXString& value) { IDFV_ = value; }
  /// "1" if advertising tracking is allowed. Any other non-empty string counts as not allowed; null
  /// and "" omit "ad_tracking".
  const JXString& adTrackingEnabled() const { return adTrackingEnabled_; }
  void setAdTrackingEnabled(const JXString& value) { adTrackingEnabled_ = value; }
  /// The user agent; null until it is known.
  const JXString& user_agent() const { return user_agent_; }
  void setUser_agent(const JXString& value) { user_agent_ = value; }
  /// The runtime name, written to the "os" object.
  const JXString& osName() const { return osName_; }
  void setOsName(const JXString& value) { osName_ = value; }
  /// The operating system version.
  const JXString& osVersion() const { return osVersion_; }
  void setOsVersion(const JXString& value) { osVersion_ = value; }
  /// The screen width in points.
  const std::optional<JXDecimal>& screenWidth() const { return screenWidth_; }
  void setScreenWidth(const std::optional<JXDecimal>& value) { screenWidth_ = value; }
  /// The screen height in points.
  const std::optional<JXDecimal>& screenHeight() const { return screenHeight_; }
  void setScreenHeight(const std::optional<JXDecimal>& value) { screenHeight_ = value; }

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
