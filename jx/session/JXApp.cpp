// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXApp.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXServerSideVersion.h"

namespace jx {
namespace {

std::atomic<int> JX_INIT_STATE{kJXInitNever};

}  // namespace

JXApp* JXApp::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXApp")) return this;
  if (!baseInit()) return nullptr;
  const JXSessionLock lock;
  JX_INIT_STATE = kJXInitDone;
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  name_ = variables.getData(kJXPredefinedVariable_ApplicationName);
  version_ = variables.getData(kJXPredefinedVariable_ApplicationVersion);
  build_ = variables.getData(kJXPredefinedVariable_ApplicationBuild);
  nameSpace_ = variables.getData(kJXPredefinedVariable_BundleID);
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
  consentVersion_ = JXCoreVariables::sharedInstance().getData(JX_ConsentVersion);
}

JXJsonObject JXApp::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

void JXApp::writeOwnEntries(JXJsonSink& sink) const {
  const JXSessionLock lock;
  sink.text(JXA_NAME, name_);
  sink.text(JXA_VERSION, version_);
  sink.text(JXA_BUILD, build_);
  sink.text(JXA_NAMESPACE, nameSpace_);
  sink.text(JXA_SERVERSIDEVERSION, serverSideVersion_);
  sink.text(JXA_COREVERSION, coreVersion_);
  sink.text(JXA_CONSENTVERSION, consentVersion_);
}

}  // namespace jx
