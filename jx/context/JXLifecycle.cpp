// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/context/JXLifecycle.h"

#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUtils.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {
namespace {

bool alreadyInitialised = false;

}  // namespace

JXLifecycle& JXLifecycle::sharedInstance() {
  static JXLifecycle* const instance = [] {
    auto* const made = new JXLifecycle();
    made->init();
    return made;
  }();
  return *instance;
}

JXLifecycle* JXLifecycle::init() {
  if (alreadyInitialised) neverReturn();
  alreadyInitialised = true;
  return baseInit() ? this : nullptr;
}

void JXLifecycle::refreshContent() {
  const JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  sessionID_ = variables.getData(kJXPredefinedVariable_SessionID);
  isNewSession_ = variables.getData(kJXPredefinedVariable_IsNewSession) == JXString("1");
  sessionDuration_ = variables.getData(kJXPredefinedVariable_SessionDurationMs);
  currentSession_ = variables.getData(kJXPredefinedVariable_CurrentSessionMs);
  visitNumber_ = variables.getData(kJXPredefinedVariable_NumberVisits);
  currentVisit_ = variables.getData(kJXPredefinedVariable_CurrentVisitMs);
  currentVersionFirstVisit_ = variables.getData(kJXPredefinedVariable_CurVersionFirstVisitMs);
  sessionNumber_ = variables.getData(kJXPredefinedVariable_NumberSessions);
  firstVisit_ = variables.getData(kJXPredefinedVariable_FirstVisitMs);
  lastVisit_ = variables.getData(kJXPredefinedVariable_LastVisitMs);
  lastCall_ = variables.getData(kJXPredefinedVariable_LastCallMs);
  lastSessionStart_ = variables.getData(kJXPredefinedVariable_LastSessionStartMs);
  lastSessionLastHit_ = variables.getData(kJXPredefinedVariable_LastSessionLastHitMs);
  foregroundTransitions_ = variables.getData(kJXPredefinedVariable_ForegroundTransitions);
  foregroundTime_ = variables.getData(kJXPredefinedVariable_ForegroundTime);
  backgroundTime_ = variables.getData(kJXPredefinedVariable_BackgroundTime);
  // The new-session mark is told as "1", these two as "TRUE".
  firstExecute_ = variables.getData(kJXPredefinedVariable_FirstExecute) == JXString("TRUE");
  isFirstVisit_ = variables.getData(kJXPredefinedVariable_IsFirstVisit) == JXString("TRUE");
}

JXJsonObject JXLifecycle::getJsonObject() {
  refreshContent();
  JXJsonObject dict = getAdditionalProperties().mutableCopy();
  JXUtils::setString_forKey_onDict(sessionID_, JXL_SESSION_ID, dict);
  JXUtils::setBool_forKey_onDict(isNewSession_, JXL_NEW_SESSION, dict);
  JXUtils::setFloatFromString_forKey_onDict(sessionDuration_, JXL_SESSION_DURATION, dict);
  JXUtils::setFloatFromString_forKey_onDict(currentSession_, JXL_CURRENT_SESSION, dict);
  JXUtils::setFloatFromString_forKey_onDict(visitNumber_, JXL_VISIT_NUMBER, dict);
  JXUtils::setFloatFromString_forKey_onDict(currentVisit_, JXL_CURRENT_VISIT, dict);
  JXUtils::setFloatFromString_forKey_onDict(currentVersionFirstVisit_, JXL_CUR_VER_FIRST_VISIT,
                                            dict);
  JXUtils::setFloatFromString_forKey_onDict(sessionNumber_, JXL_SESSION_NUMBER, dict);
  JXUtils::setFloatFromString_forKey_onDict(firstVisit_, JXL_FIRST_VISIT, dict);
  JXUtils::setFloatFromString_forKey_onDict(lastVisit_, JXL_LAST_VISIT, dict);
  JXUtils::setFloatFromString_forKey_onDict(lastCall_, JXL_LAST_CALL, dict);
  JXUtils::setFloatFromString_forKey_onDict(lastSessionStart_, JXL_LAST_SESSION_START, dict);
  JXUtils::setFloatFromString_forKey_onDict(lastSessionLastHit_, JXL_LAST_SESSION_LAST_HIT, dict);
  JXUtils::setFloatFromString_forKey_onDict(foregroundTransitions_, JXL_FOREGROUND_TRANSITIONS,
                                            dict);
  JXUtils::setFloatFromString_forKey_onDict(foregroundTime_, JXL_FOREGROUND_TIME, dict);
  JXUtils::setFloatFromString_forKey_onDict(backgroundTime_, JXL_BACKGROUND_TIME, dict);
  JXUtils::setBool_forKey_onDict(firstExecute_, JXL_FIRST_EXECUTE, dict);
  JXUtils::setBool_forKey_onDict(isFirstVisit_, JXL_IS_FIRST_VISIT, dict);
  return dict;
}

}  // namespace jx
