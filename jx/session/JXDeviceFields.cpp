// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXDeviceFields.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXDeviceFields::readVariables() {
  const JXSessionLock lock;
  const JXDynamicStore::Strings strings = JXPredefinedVariables::sharedInstance().strings();
  strings.read(kJXPredefinedVariable_SDKID, places_[0], sdkID_);
  strings.read(kJXPredefinedVariable_Language, places_[1], language_);
  strings.read(kJXPredefinedVariable_Region, places_[2], region_);
  strings.read(kJXPredefinedVariable_Manufacturer, places_[3], manufacturer_);
  strings.read(kJXPredefinedVariable_Model, places_[4], model_);
  strings.read(kJXPredefinedVariable_Device, places_[5], name_);
  strings.read(kJXPredefinedVariable_RuntimeName, places_[6], type_);
  strings.read(kJXPredefinedVariable_RuntimeName, places_[7], osName_);
  strings.read(kJXPredefinedVariable_SystemVersion, places_[8], osVersion_);
  if (const JXDecimal number =
          JXDecimal::fromString(strings.view(kJXPredefinedVariable_ScreenWidth, places_[9]));
      !number.isNaN())
    screenWidth_ = number;
  if (const JXDecimal number =
          JXDecimal::fromString(strings.view(kJXPredefinedVariable_ScreenHeight, places_[10]));
      !number.isNaN())
    screenHeight_ = number;
}

void JXDeviceFields::writeOwnEntries(JXJsonSink& sink) const {
  const JXSessionLock lock;
  if (adTrackingEnabled_.testString()) sink.flag(JXD_ADTRACKING, adTrackingEnabled_.view() == "1");
  sink.text(JXD_USER_AGENT, user_agent_);
  sink.text(JXD_IDFA, IDFA_);
  sink.text(JXD_IDFV, IDFV_);
  sink.text(JXD_SDK_ID, sdkID_);
  sink.text(JXD_LANGUAGE, language_);
  sink.text(JXD_REGION, region_);
  sink.text(JXD_MANUFACTURER, manufacturer_);
  sink.text(JXD_MODEL, model_);
  sink.text(JXD_NAME, name_);
  sink.text(JXD_TYPE, type_);
  sink.block(JXD_NETWORK, JXNetwork::sharedInstance());
  sink.beginObject(JXD_OS);
  writeOver(osProperties_ ? extrasOf(*osProperties_) : nullptr, sink, [this](JXJsonSink& os) {
    os.text(JXD_OS_NAME, osName_);
    os.text(JXD_OS_VERSION, osVersion_);
  });
  sink.endObject();
  sink.beginObject(JXD_SCREEN);
  writeOver(screenProperties_ ? extrasOf(*screenProperties_) : nullptr, sink,
            [this](JXJsonSink& screen) {
              screen.number(JXD_SCREEN_WIDTH, screenWidth_);
              screen.number(JXD_SCREEN_HEIGHT, screenHeight_);
            });
  sink.endObject();
  sink.text(JXD_TIMEZONE, timezone_);
  sink.block(JXL_LIFECYCLE, JXLifecycle::sharedInstance());
}

}  // namespace jx
