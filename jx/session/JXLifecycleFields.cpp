// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXLifecycleFields.h"

#include <iterator>
#include <string_view>
#include <utility>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXLifecycleFields::readVariables() {
  static constexpr std::string_view kNames[] = {kJXPredefinedVariable_SessionID,
                                                kJXPredefinedVariable_IsNewSession,
                                                kJXPredefinedVariable_SessionDurationMs,
                                                kJXPredefinedVariable_CurrentSessionMs,
                                                kJXPredefinedVariable_NumberVisits,
                                                kJXPredefinedVariable_CurrentVisitMs,
                                                kJXPredefinedVariable_CurVersionFirstVisitMs,
                                                kJXPredefinedVariable_NumberSessions,
                                                kJXPredefinedVariable_FirstVisitMs,
                                                kJXPredefinedVariable_LastVisitMs,
                                                kJXPredefinedVariable_LastCallMs,
                                                kJXPredefinedVariable_LastSessionStartMs,
                                                kJXPredefinedVariable_LastSessionLastHitMs,
                                                kJXPredefinedVariable_ForegroundTransitions,
                                                kJXPredefinedVariable_ForegroundTime,
                                                kJXPredefinedVariable_BackgroundTime,
                                                kJXPredefinedVariable_FirstExecute,
                                                kJXPredefinedVariable_IsFirstVisit};
  JXString values[std::size(kNames)];
  const JXSessionLock lock;
  JXPredefinedVariables::sharedInstance().getStrings(kNames, std::size(kNames), places_, values);
  sessionID_ = std::move(values[0]);
  isNewSession_ = values[1].view() == "1";
  sessionDuration_ = std::move(values[2]);
  currentSession_ = std::move(values[3]);
  visitNumber_ = std::move(values[4]);
  currentVisit_ = std::move(values[5]);
  currentVersionFirstVisit_ = std::move(values[6]);
  sessionNumber_ = std::move(values[7]);
  firstVisit_ = std::move(values[8]);
  lastVisit_ = std::move(values[9]);
  lastCall_ = std::move(values[10]);
  lastSessionStart_ = std::move(values[11]);
  lastSessionLastHit_ = std::move(values[12]);
  foregroundTransitions_ = std::move(values[13]);
  foregroundTime_ = std::move(values[14]);
  backgroundTime_ = std::move(values[15]);
  firstExecute_ = values[16].view() == "TRUE";
  isFirstVisit_ = values[17].view() == "TRUE";
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
