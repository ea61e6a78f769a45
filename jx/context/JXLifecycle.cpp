// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/context/JXLifecycle.h"

#include "jx/core/JXStartGuard.h"
#include "jx/core/json/JXJsonSink.h"
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
  return newJsonObject();
}

void JXLifecycle::writeOwnEntries(JXJsonSink& sink) const {
  sink.text(JXL_SESSION_ID, sessionID_);
  sink.flag(JXL_NEW_SESSION, isNewSession_);
  sink.numberFromText(JXL_SESSION_DURATION, sessionDuration_);
  sink.numberFromText(JXL_CURRENT_SESSION, currentSession_);
  sink.numberFromText(JXL_VISIT_NUMBER, visitNumber_);
  sink.numberFromText(JXL_CURRENT_VISIT, currentVisit_);
  sink.numberFromText(JXL_CUR_VER_FIRST_VISIT, currentVersionFirstVisit_);
  sink.numberFromText(JXL_SESSION_NUMBER, sessionNumber_);
  sink.numberFromText(JXL_FIRST_VISIT, firstVisit_);
  sink.numberFromText(JXL_LAST_VISIT, lastVisit_);
  sink.numberFromText(JXL_LAST_CALL, lastCall_);
  sink.numberFromText(JXL_LAST_SESSION_START, lastSessionStart_);
  sink.numberFromText(JXL_LAST_SESSION_LAST_HIT, lastSessionLastHit_);
  sink.numberFromText(JXL_FOREGROUND_TRANSITIONS, foregroundTransitions_);
  sink.numberFromText(JXL_FOREGROUND_TIME, foregroundTime_);
  sink.numberFromText(JXL_BACKGROUND_TIME, backgroundTime_);
  sink.flag(JXL_FIRST_EXECUTE, firstExecute_);
  sink.flag(JXL_IS_FIRST_VISIT, isFirstVisit_);
}

}  // namespace jx
