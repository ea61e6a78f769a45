// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The variables after the stored data was erased: those of a first start.

#include <string>
#include <string_view>
#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUser.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXSession.h"

namespace jx {
namespace {

// The identifiers, and everything that follows from earlier events, sessions and starts.
constexpr std::string_view kErased[] = {
    kJXPredefinedVariable_SDKID,
    kJXPredefinedVariable_UniqueID,
    kJXPredefinedVariable_IDFA,
    kJXPredefinedVariable_IDFV,
    kJXPredefinedVariable_isTrackingEnabled,
    kJXPredefinedVariable_FirstExecute,
    kJXPredefinedVariable_CurrentCallMs,
    kJXPredefinedVariable_LastCallMs,
    kJXPredefinedVariable_ColdStarts,
    kJXPredefinedVariable_IsFirstVisit,
    kJXPredefinedVariable_CurVersionFirstVisitMs,
    kJXPredefinedVariable_FirstVisitMs,
    kJXPredefinedVariable_LastVisitMs,
    kJXPredefinedVariable_CurrentVisitMs,
    kJXPredefinedVariable_NumberVisits,
    kJXPredefinedVariable_NumberSessions,
    kJXPredefinedVariable_CurrentSessionMs,
    kJXPredefinedVariable_SessionID,
    kJXPredefinedVariable_IsNewSession,
    kJXPredefinedVariable_LastSessionStartMs,
    kJXPredefinedVariable_LastSessionLastHitMs,
    kJXPredefinedVariable_SessionDurationMs,
    kJXPredefinedVariable_UserSessionDurationMs,
    kJXPredefinedVariable_UsageSessionDurationMs,
    kJXPredefinedVariable_ForegroundTransitions,
    kJXPredefinedVariable_ForegroundTime,
    kJXPredefinedVariable_DeltaForegroundTime,
    kJXPredefinedVariable_BackgroundTime,
    kJXPredefinedVariable_DeltaBackgroundTime,
    kJXPredefinedVariable_TimeSinceLastExit,
    kJXPredefinedVariable_AccumulatedBackgroundTime,
    kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement,
    kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement,
};

}  // namespace

void JXPredefinedVariables::forgetStoredData() {
  const JXSessionLock lock;
  if (!dynamicStore_) return;
  // An application that uses the erased identifier as consent ID sets the new one.
  JXUser& user = JXUser::sharedInstance();
  const JXString uniqueId = getData(kJXPredefinedVariable_UniqueID);
  if (uniqueId.isPresent() && user.consentID() == uniqueId) user.setConsentID(nullptr);
  for (const std::string_view name : kErased)
    removeData(name);
  resetUsage();
}

void JXPredefinedVariables::beginFirstVisit() {
  const JXSessionLock lock;
  if (!dynamicStore_) return;
  // The application may have replaced it.
  const JXString version = getData(kJXPredefinedVariable_ApplicationVersion);
  // As at the start, so that the process is not stored as the one of the last visit.
  const JXString pid = std::exchange(pid_, nullptr);
  const JXString timeMs = nowMsString();
  setVariable(kJXPredefinedVariable_SDKID,
              JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_SDKID));
  initIsFirstVisit();
  initLastCallLastVisit();
  setVisitorIDCurrentCallUniqueID(timeMs);
  initApplicationVersion(timeMs);
  initColdStartNumber();
  setTimestamps(timeMs);
  initComScoreSession(timeMs);
  setVariable(kJXPredefinedVariable_DeltaBackgroundTime, "0");
  setVariable(kJXPredefinedVariable_ForegroundTransitions,
              std::to_string(totalForegroundTransitions_));
  setVariable(kJXPredefinedVariable_ApplicationVersion, version);
  pid_ = pid;
}

void JXPredefinedVariables::renewIfErased() {
  JXCoreServices::sharedInstance().erasures().check();
  JXSession::sharedInstance().renewIfErased();
}

}  // namespace jx
