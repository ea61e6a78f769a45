// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXDeviceFields.h"

#include <iterator>
#include <string_view>
#include <utility>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXDeviceFields::readVariables() {
  static constexpr std::string_view kNames[] = {
      kJXPredefinedVariable_SDKID,         kJXPredefinedVariable_Language,
      kJXPredefinedVariable_Region,        kJXPredefinedVariable_Manufacturer,
      kJXPredefinedVariable_Model,         kJXPredefinedVariable_Device,
      kJXPredefinedVariable_RuntimeName,   kJXPredefinedVariable_RuntimeName,
      kJXPredefinedVariable_SystemVersion, kJXPredefinedVariable_ScreenWidth,
      kJXPredefinedVariable_ScreenHeight};
  JXString values[std::size(kNames)];
  const JXSessionLock lock;
  JXPredefinedVariables::sharedInstance().getStrings(kNames, std::size(kNames), places_, values);
  sdkID_ = std::move(values[0]);
  language_ = std::move(values[1]);
  region_ = std::move(values[2]);
  manufacturer_ = std::move(values[3]);
  model_ = std::move(values[4]);
  name_ = std::move(values[5]);
  type_ = std::move(values[6]);
  osName_ = std::move(values[7]);
  osVersion_ = std::move(values[8]);
  if (const JXDecimal number = JXDecimal::fromString(values[9]); !number.isNaN())
    screenWidth_ = number;
  if (const JXDecimal number = JXDecimal::fromString(values[10]); !number.isNaN())
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
