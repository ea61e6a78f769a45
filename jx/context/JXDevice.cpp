// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/context/JXDevice.h"

#include "jx/context/JXLifecycle.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUtils.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {
namespace {

int JX_INIT_STATE = kJXInitNever;

void storeNumber(const JXString& text, std::optional<JXDecimal>& field) {
  const JXDecimal number = JXDecimal::fromString(text);
  if (!number.isNotANumber()) field = number;
}

JXJsonObject extensionOf(const std::shared_ptr<JXAdditionalProperties>& properties) {
  return properties ? properties->getAdditionalProperties().mutableCopy() : JXJsonObject();
}

}  // namespace

JXDevice& JXDevice::sharedInstance() {
  static JXDevice* const instance = [] {
    auto* const made = new JXDevice();
    made->init();
    return made;
  }();
  return *instance;
}

JXDevice* JXDevice::init() {
  if (!mayInitialise(JX_INIT_STATE)) return this;
  if (!baseInit()) return nullptr;
  JX_INIT_STATE = kJXInitDone;
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  sdkID_ = variables.getData(kJXPredefinedVariable_SDKID);
  language_ = variables.getData(kJXPredefinedVariable_Language);
  region_ = variables.getData(kJXPredefinedVariable_Region);
  model_ = variables.getData(kJXPredefinedVariable_Model);
  manufacturer_ = variables.getData(kJXPredefinedVariable_Manufacturer);
  name_ = variables.getData(kJXPredefinedVariable_Device);
  // Type and os name are two fields that hold the same variable; a host may set either.
  type_ = variables.getData(kJXPredefinedVariable_RuntimeName);
  osName_ = variables.getData(kJXPredefinedVariable_RuntimeName);
  osVersion_ = variables.getData(kJXPredefinedVariable_SystemVersion);
  timezone_ = JXCoreServices::sharedInstance().platform().timeZoneName();
  osProperties_ = JXAdditionalProperties::init();
  screenProperties_ = JXAdditionalProperties::init();
  storeNumber(variables.getData(kJXPredefinedVariable_ScreenWidth), screenWidth_);
  storeNumber(variables.getData(kJXPredefinedVariable_ScreenHeight), screenHeight_);
  return this;
}

JXDevice* JXDevice::reinit() {
  JX_INIT_STATE = kJXInitAgain;
  return init();
}

void JXDevice::setAdvertisingIds() {
  const JXCoreVariables& variables = JXCoreVariables::sharedInstance();
  adTrackingEnabled_ = variables.getData(kJXPredefinedVariable_isTrackingEnabled);
  IDFA_ = variables.getData(kJXPredefinedVariable_IDFA);
  IDFV_ = variables.getData(kJXPredefinedVariable_IDFV);
}

JXJsonObject JXDevice::getJsonObject() {
  JXJsonObject dict = getAdditionalProperties().mutableCopy();
  if (adTrackingEnabled_.testString()) {
    JXUtils::setBool_forKey_onDict(adTrackingEnabled_ == JXString("1"), JXD_ADTRACKING, dict);
  }
  if (!user_agent_.isPresent()) {
    user_agent_ = JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_UserAgent);
  }
  JXUtils::setString_forKey_onDict(user_agent_, JXD_USER_AGENT, dict);
  JXUtils::setString_forKey_onDict(IDFA_, JXD_IDFA, dict);
  JXUtils::setString_forKey_onDict(IDFV_, JXD_IDFV, dict);
  JXUtils::setString_forKey_onDict(sdkID_, JXD_SDK_ID, dict);
  JXUtils::setString_forKey_onDict(language_, JXD_LANGUAGE, dict);
  JXUtils::setString_forKey_onDict(region_, JXD_REGION, dict);
  JXUtils::setString_forKey_onDict(manufacturer_, JXD_MANUFACTURER, dict);
  JXUtils::setString_forKey_onDict(model_, JXD_MODEL, dict);
  JXUtils::setString_forKey_onDict(name_, JXD_NAME, dict);
  JXUtils::setString_forKey_onDict(type_, JXD_TYPE, dict);
  JXUtils::setJson_forKey_onDict(JXNetwork::sharedInstance().getJsonObject(), JXD_NETWORK, dict);
  JXUtils::setJson_forKey_onDict(osJson(), JXD_OS, dict);
  JXUtils::setJson_forKey_onDict(screenJson(), JXD_SCREEN, dict);
  JXUtils::setString_forKey_onDict(timezone_, JXD_TIMEZONE, dict);
  JXUtils::setJson_forKey_onDict(JXLifecycle::sharedInstance().getJsonObject(), JXL_LIFECYCLE,
                                 dict);
  return dict;
}

JXJsonObject JXDevice::osJson() const {
  JXJsonObject dict = extensionOf(osProperties_);
  JXUtils::setString_forKey_onDict(osName_, JXD_OS_NAME, dict);
  JXUtils::setString_forKey_onDict(osVersion_, JXD_OS_VERSION, dict);
  return dict;
}

JXJsonObject JXDevice::screenJson() const {
  JXJsonObject dict = extensionOf(screenProperties_);
  JXUtils::setFloat_forKey_onDict(screenWidth_, JXD_SCREEN_WIDTH, dict);
  JXUtils::setFloat_forKey_onDict(screenHeight_, JXD_SCREEN_HEIGHT, dict);
  return dict;
}

}  // namespace jx
