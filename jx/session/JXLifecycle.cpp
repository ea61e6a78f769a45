// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXLifecycle.h"

#include <string_view>
#include <utility>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {
namespace {

std::atomic<bool> alreadyInitialised{false};

}  // namespace

JXLifecycle* JXLifecycle::init() {
  if (alreadyInitialised.exchange(true)) {
    neverReturn("JXLifecycle: init was called a second time; the call never returns");
  }
  return baseInit() ? this : nullptr;
}

void JXLifecycle::refreshContent() {
  const JXSessionLock lock;
  static constexpr std::string_view kKeys[kVariables] = {
      kJXPredefinedVariable_SessionID,
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
  JXString values[kVariables];
  JXPredefinedVariables::sharedInstance().getStrings(kKeys, kVariables, places_, values);
  JXString* next = values;
  sessionID_ = std::move(*next++);
  isNewSession_ = next->view() == "1";
  ++next;
  sessionDuration_ = std::move(*next++);
  currentSession_ = std::move(*next++);
  visitNumber_ = std::move(*next++);
  currentVisit_ = std::move(*next++);
  currentVersionFirstVisit_ = std::move(*next++);
  sessionNumber_ = std::move(*next++);
  firstVisit_ = std::move(*next++);
  lastVisit_ = std::move(*next++);
  lastCall_ = std::move(*next++);
  lastSessionStart_ = std::move(*next++);
  lastSessionLastHit_ = std::move(*next++);
  foregroundTransitions_ = std::move(*next++);
  foregroundTime_ = std::move(*next++);
  backgroundTime_ = std::move(*next++);
  // The new-session mark is "1" when it is set, these two are "TRUE".
  firstExecute_ = next->view() == "TRUE";
  ++next;
  isFirstVisit_ = next->view() == "TRUE";
}

JXJsonObject JXLifecycle::getJsonObject() {
  const JXSessionLock lock;
  refreshContent();
  return newJsonObject();
}

void JXLifecycle::writeOwnEntries(JXJsonSink& sink) const {
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
