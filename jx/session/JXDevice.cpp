// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXDevice.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {
namespace {

std::atomic<int> JX_INIT_STATE{kJXInitNever};

void storeNumber(const JXString& digits, std::optional<JXDecimal>& field) {
  const JXDecimal number = JXDecimal::fromString(digits);
  if (!number.isNaN()) field = number;
}

}  // namespace

JXDevice* JXDevice::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXDevice")) return this;
  if (!baseInit()) return nullptr;
  const JXSessionLock lock;
  JX_INIT_STATE = kJXInitDone;
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  sdkID_ = variables.getData(kJXPredefinedVariable_SDKID);
  language_ = variables.getData(kJXPredefinedVariable_Language);
  region_ = variables.getData(kJXPredefinedVariable_Region);
  model_ = variables.getData(kJXPredefinedVariable_Model);
  manufacturer_ = variables.getData(kJXPredefinedVariable_Manufacturer);
  name_ = variables.getData(kJXPredefinedVariable_Device);
  // Two fields with the same initial value; the application can set them independently.
  type_ = variables.getData(kJXPredefinedVariable_RuntimeName);
  osName_ = variables.getData(kJXPredefinedVariable_RuntimeName);
  osVersion_ = variables.getData(kJXPredefinedVariable_SystemVersion);
  timezone_ = JXCoreServices::sharedInstance().platform().timeZoneName();
  osProperties_ = JXAdditionalProperties::initShared();
  screenProperties_ = JXAdditionalProperties::initShared();
  storeNumber(variables.getData(kJXPredefinedVariable_ScreenWidth), screenWidth_);
  storeNumber(variables.getData(kJXPredefinedVariable_ScreenHeight), screenHeight_);
  return this;
}

JXDevice* JXDevice::reinit() {
  JX_INIT_STATE = kJXInitAgain;
  return init();
}

void JXDevice::setAdvertisingIds() {
  const JXSessionLock lock;
  const JXCoreVariables& variables = JXCoreVariables::sharedInstance();
  adTrackingEnabled_ = variables.getData(kJXPredefinedVariable_isTrackingEnabled);
  IDFA_ = variables.getData(kJXPredefinedVariable_IDFA);
  IDFV_ = variables.getData(kJXPredefinedVariable_IDFV);
}

void JXDevice::refreshContent() {
  const JXSessionLock lock;
  if (!user_agent_.isPresent()) {
    user_agent_ = JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_UserAgent);
  }
  JXLifecycle::sharedInstance().refreshContent();
}

JXJsonObject JXDevice::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

void JXDevice::writeOwnEntries(JXJsonSink& sink) const {
  const JXSessionLock lock;
  if (adTrackingEnabled_.testString()) {
    sink.flag(JXD_ADTRACKING, adTrackingEnabled_ == JXString("1"));
  }
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
  writeOs(sink);
  writeScreen(sink);
  sink.text(JXD_TIMEZONE, timezone_);
  sink.block(JXL_LIFECYCLE, JXLifecycle::sharedInstance());
}

void JXDevice::writeOs(JXJsonSink& sink) const {
  sink.beginObject(JXD_OS);
  writeOver(osProperties_ ? extrasOf(*osProperties_) : nullptr, sink, [this](JXJsonSink& os) {
    os.text(JXD_OS_NAME, osName_);
    os.text(JXD_OS_VERSION, osVersion_);
  });
  sink.endObject();
}

void JXDevice::writeScreen(JXJsonSink& sink) const {
  sink.beginObject(JXD_SCREEN);
  writeOver(screenProperties_ ? extrasOf(*screenProperties_) : nullptr, sink,
            [this](JXJsonSink& screen) {
              screen.number(JXD_SCREEN_WIDTH, screenWidth_);
              screen.number(JXD_SCREEN_HEIGHT, screenHeight_);
            });
  sink.endObject();
}

}  // namespace jx
