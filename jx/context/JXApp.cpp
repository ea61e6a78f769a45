// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/context/JXApp.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUtils.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"
#include "jx/variables/JXServerSideVersion.h"

namespace jx {
namespace {

int JX_INIT_STATE = kJXInitNever;

}  // namespace

JXApp& JXApp::sharedInstance() {
  static JXApp* const instance = [] {
    auto* const made = new JXApp();
    made->init();
    return made;
  }();
  return *instance;
}

JXApp* JXApp::init() {
  if (!mayInitialise(JX_INIT_STATE)) return this;
  if (!baseInit()) return nullptr;
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

JXJsonObject JXApp::getJsonObject() {
  JXJsonObject dict = getAdditionalProperties().mutableCopy();
  consentVersion_ = JXCoreVariables::sharedInstance().getData(JX_ConsentVersion);
  JXUtils::setString_forKey_onDict(name_, JXA_NAME, dict);
  JXUtils::setString_forKey_onDict(version_, JXA_VERSION, dict);
  JXUtils::setString_forKey_onDict(build_, JXA_BUILD, dict);
  JXUtils::setString_forKey_onDict(nameSpace_, JXA_NAMESPACE, dict);
  JXUtils::setString_forKey_onDict(serverSideVersion_, JXA_SERVERSIDEVERSION, dict);
  JXUtils::setString_forKey_onDict(coreVersion_, JXA_COREVERSION, dict);
  JXUtils::setString_forKey_onDict(consentVersion_, JXA_CONSENTVERSION, dict);
  return dict;
}

}  // namespace jx
