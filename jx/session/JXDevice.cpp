// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXDevice.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"
#include "jx/session/JXLifecycle.h"

namespace jx {

std::atomic<int> JXDevice::JX_INIT_STATE{kJXInitNever};

JXDevice* JXDevice::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXDevice")) return this;
  if (!baseInit()) return nullptr;
  const JXSessionLock lock;
  JX_INIT_STATE = kJXInitDone;
  readVariables();
  timezone_ = JXCoreServices::sharedInstance().platform().timeZoneName();
  osProperties_ = JXAdditionalProperties::initShared();
  screenProperties_ = JXAdditionalProperties::initShared();
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
    static JXDynamicStore::Place place;  // guarded by the session's lock
    JXDynamicStore::Strings(JXCoreVariables::sharedInstance().dynamicStore().get())
        .read(kJXPredefinedVariable_UserAgent, place, user_agent_);
  }
  JXLifecycle::sharedInstance().refreshContent();
}

JXJsonObject JXDevice::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

}  // namespace jx
