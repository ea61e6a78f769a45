// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXLifecycleFields.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXLifecycleFields::readVariables() {
  const JXSessionLock lock;
  const JXDynamicStore::Strings strings = JXPredefinedVariables::sharedInstance().strings();
  strings.read(kJXPredefinedVariable_SessionID, places_[0], sessionID_);
  isNewSession_ = strings.view(kJXPredefinedVariable_IsNewSession, places_[1]) == "1";
  strings.read(kJXPredefinedVariable_SessionDurationMs, places_[2], sessionDuration_);
  strings.read(kJXPredefinedVariable_CurrentSessionMs, places_[3], currentSession_);
  strings.read(kJXPredefinedVariable_NumberVisits, places_[4], visitNumber_);
  strings.read(kJXPredefinedVariable_CurrentVisitMs, places_[5], currentVisit_);
  strings.read(kJXPredefinedVariable_CurVersionFirstVisitMs, places_[6], currentVersionFirstVisit_);
  strings.read(kJXPredefinedVariable_NumberSessions, places_[7], sessionNumber_);
  strings.read(kJXPredefinedVariable_FirstVisitMs, places_[8], firstVisit_);
  strings.read(kJXPredefinedVariable_LastVisitMs, places_[9], lastVisit_);
  strings.read(kJXPredefinedVariable_LastCallMs, places_[10], lastCall_);
  strings.read(kJXPredefinedVariable_LastSessionStartMs, places_[11], lastSessionStart_);
  strings.read(kJXPredefinedVariable_LastSessionLastHitMs, places_[12], lastSessionLastHit_);
  strings.read(kJXPredefinedVariable_ForegroundTransitions, places_[13], foregroundTransitions_);
  strings.read(kJXPredefinedVariable_ForegroundTime, places_[14], foregroundTime_);
  strings.read(kJXPredefinedVariable_BackgroundTime, places_[15], backgroundTime_);
  firstExecute_ = strings.view(kJXPredefinedVariable_FirstExecute, places_[16]) == "TRUE";
  isFirstVisit_ = strings.view(kJXPredefinedVariable_IsFirstVisit, places_[17]) == "TRUE";
}

void JXLifecycleFields::writeOwnEntries(JXJsonSink& sink) const {
  const JXSessionLock lock;
  sink.text(JXL_SESSION_ID, sessionID_);
  sink.flag(JXL_NEW_SESSION, isNewSession_);
  sink.numberFromString(JXL_SESSION_DURATION, sessionDuration_);
  sink.numberFromString(JXL_CURRENT_SESSION, currentSession_);
  sink.numberFromString(JXL_VISIT_NUMBER, visitNumber_);
  sink.numberFromString(JXL_CURRENT_VISIT, currentVisit_);
  sink.numberFromString(JXL_CUR_VER_FIRST_VISIT, currentVersionFirstVisit_);
  sink.numberFromString(JXL_SESSION_NUMBER, sessionNumber_);
  sink.numberFromString(JXL_FIRST_VISIT, firstVisit_);
  sink.numberFromString(JXL_LAST_VISIT, lastVisit_);
  sink.numberFromString(JXL_LAST_CALL, lastCall_);
  sink.numberFromString(JXL_LAST_SESSION_START, lastSessionStart_);
  sink.numberFromString(JXL_LAST_SESSION_LAST_HIT, lastSessionLastHit_);
  sink.numberFromString(JXL_FOREGROUND_TRANSITIONS, foregroundTransitions_);
  sink.numberFromString(JXL_FOREGROUND_TIME, foregroundTime_);
  sink.numberFromString(JXL_BACKGROUND_TIME, backgroundTime_);
  sink.flag(JXL_FIRST_EXECUTE, firstExecute_);
  sink.flag(JXL_IS_FIRST_VISIT, isFirstVisit_);
}

}  // namespace jx
