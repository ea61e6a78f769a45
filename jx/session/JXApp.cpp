// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXApp.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"
#include "jx/session/JXServerSideVersion.h"

namespace jx {

std::atomic<int> JXApp::JX_INIT_STATE{kJXInitNever};

JXApp* JXApp::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXApp")) return this;
  if (!baseInit()) return nullptr;
  const JXSessionLock lock;
  JX_INIT_STATE = kJXInitDone;
  readVariables();
  coreVersion_ = kJXCoreVersion;
  serverSideVersion_ = kJXServerSideVersion;
  consentVersion_ = "";
  return this;
}

JXApp* JXApp::reinit() {
  JX_INIT_STATE = kJXInitAgain;
  return init();
}

void JXApp::refreshContent() {
  const JXSessionLock lock;
  JXDynamicStore::Strings(JXCoreVariables::sharedInstance().dynamicStore().get())
      .read(JX_ConsentVersion, placeOfConsentVersion_, consentVersion_);
}

JXJsonObject JXApp::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

}  // namespace jx
