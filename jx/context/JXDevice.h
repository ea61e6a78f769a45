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

/// The device block: device, system, screen, network, advertising identifiers and user agent, with
/// the lifecycle block inside. What identifies the device is read once, when the object is made;
/// the advertising values come with `setAdvertisingIds`, the user agent when it is first known.
/// Belongs to the thread that executes events.
class JX_API JXDevice : public JXAdditionalProperties {
 public:
  /// The one block of this process, filled when it is first asked for.
  static JXDevice& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXDevice() = default;
  /// Reads the values once per process and returns this object (see `tryBeginInit`); an object
  /// that is made after the shared one comes back as it is. Null when the base could not be
  /// initialised.
  JXDevice* init();
  /// Reads the values anew. What the host added to the os and screen objects is dropped; its other
  /// additional properties, the advertising values and the user agent stay.
  JXDevice* reinit();

  /// Copies the tracking flag and both identifiers from the core's variables.
  void setAdvertisingIds();
  /// Where the host adds keys of its own to the nested os and screen objects. Null before `init`.
  const std::shared_ptr<JXAdditionalProperties>& getOsProperties() const { return osProperties_; }
  /// The same for the screen object.
  const std::shared_ptr<JXAdditionalProperties>& getScreenProperties() const {
    return screenProperties_;
  }
  /// Reads the user agent when there was none before, and the lifecycle's variables.
  void refreshContent();
  /// A new object with the current values: the host's additional properties, then the fields over
  /// them.
  JXJsonObject getJsonObject();

  /// A random UUID made at the installation's first start.
  const JXString& sdkID() const { return sdkID_; }
  void setSdkID(const JXString& value) { sdkID_ = value; }
  /// The first part of the preferred language tag, "-" when none is known.
  const JXString& language() const { return language_; }
  void setLanguage(const JXString& value) { language_ = value; }
  /// The second part of the preferred language tag, "-" when it has none.
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
  /// The name of the runtime: "tvos".
  const JXString& type() const { return type_; }
  void setType(const JXString& value) { type_ = value; }
  /// The IANA name of the time zone, such as "Asia/Tokyo".
  const JXString& timezone() const { return timezone_; }
  void setTimezone(const JXString& value) { timezone_ = value; }
  /// The advertising identifier; absent before `setAdvertisingIds`.
  const JXString& IDFA() const { return IDFA_; }
  void setIDFA(const JXString& value) { IDFA_ = value; }
  /// The vendor identifier; absent before `setAdvertisingIds`.
  const JXString& IDFV() const { return IDFV_; }
  void setIDFV(const JXString& value) { IDFV_ = value; }
  /// "1" when advertising tracking is allowed.
  const JXString& adTrackingEnabled() const { return adTrackingEnabled_; }
  void setAdTrackingEnabled(const JXString& value) { adTrackingEnabled_ = value; }
  /// The user agent; absent until it is known.
  const JXString& user_agent() const { return user_agent_; }
  void setUser_agent(const JXString& value) { user_agent_ = value; }
  /// The name of the runtime again.
  const JXString& osName() const { return osName_; }
  void setOsName(const JXString& value) { osName_ = value; }
  /// The version of the operating system.
  const JXString& osVersion() const { return osVersion_; }
  void setOsVersion(const JXString& value) { osVersion_ = value; }
  /// Points.
  const std::optional<JXDecimal>& screenWidth() const { return screenWidth_; }
  void setScreenWidth(const std::optional<JXDecimal>& value) { screenWidth_ = value; }
  /// Points.
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
