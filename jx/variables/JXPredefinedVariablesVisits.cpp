// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Visits, sessions and calls. A visit is one run of the process; a session starts with each visit
// and again after a long stay in the background.

#include <cstdint>
#include <string>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/JXUtils.h"
#include "jx/variables/JXLeadingNumber.h"
#include "jx/variables/JXPersistedKeys.h"
#include "jx/variables/JXPersistedString.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {
namespace {

// A 32-bit count: one more than the stored text says, wrapping as a 32-bit number does.
std::string oneMoreThan(const JXString& count) {
  const auto number = static_cast<std::uint32_t>(JXUtils::numberFromNSString(count));
  return std::to_string(static_cast<std::int32_t>(number + 1));
}

}  // namespace

void JXPredefinedVariables::initIsFirstVisit() {
  const bool hasBeenHere = persistedText(kJXPredefinedVariable_CurVersionFirstVisitMs).testString();
  addData_withValue(kJXPredefinedVariable_IsFirstVisit, hasBeenHere ? "FALSE" : "TRUE");
}

void JXPredefinedVariables::initLastCallLastVisit() {
  const JXString lastCall = persistedText(kJXPredefinedVariable_LastCallMs);
  if (lastCall.testString()) {
    addData_withValue(kJXPredefinedVariable_LastSessionLastHitMs, lastCall);
  }
}

void JXPredefinedVariables::setVisitorIDCurrentCallUniqueID(const JXString& timeMs) {
  addData_withValue(kJXPredefinedVariable_CurrentCallMs, timeMs);
  JXPlatformDefaults* const defaults = JXUserDefaults::standardUserDefaults();
  if (defaults == nullptr) return;
  const JXString fresh = JXCoreServices::sharedInstance().platform().newUUID();
  JXString uniqueId = defaults->objectForKey(kJXUserDefaultsKey_UniqueID);
  if (!uniqueId.isPresent()) {
    uniqueId = fresh;
    defaults->setObject_forKey(uniqueId, kJXUserDefaultsKey_UniqueID);
  }
  addData_withValue(kJXPredefinedVariable_UniqueID, uniqueId);
  defaults->synchronize();
}

void JXPredefinedVariables::initColdStartNumber() {
  const JXString starts = persistedText(kJXPredefinedVariable_ColdStarts);
  const JXString counted = starts.testString() ? JXString(oneMoreThan(starts)) : JXString("1");
  addData_withValue(kJXPredefinedVariable_ColdStarts, counted);
  persistText(kJXPredefinedVariable_ColdStarts, counted);
}

void JXPredefinedVariables::setTimestamps(const JXString& timeMs) {
  const JXString firstVisit = persistedText(kJXDateFirstVisitFormat);
  if (!firstVisit.isPresent()) {
    setFirstVisitUserDefaults(timeMs);
    return;
  }
  addData_withValue(kJXPredefinedVariable_FirstVisitMs, firstVisit);
  // Two absent pids are not the same process.
  const bool isSameProcess = pid_.isPresent() && persistedText(kJXLastPID) == pid_;
  if (isSameProcess) {
    updateVisitUserDefaults(timeMs);
  } else {
    newVisitUserDefaults_currentTime(firstVisit, timeMs);
  }
}

void JXPredefinedVariables::setFirstVisitUserDefaults(const JXString& timeMs) {
  addData_withValue(kJXPredefinedVariable_FirstVisitMs, timeMs);
  addData_withValue(kJXPredefinedVariable_LastVisitMs, timeMs);
  addData_withValue(kJXPredefinedVariable_CurrentVisitMs, timeMs);
  addData_withValue(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  addData_withValue(kJXPredefinedVariable_NumberVisits, "1");
  addData_withValue(kJXPredefinedVariable_NumberSessions, "1");
  // Seconds, although the variables that read them later are named after milliseconds: what
  // installations in the field hold, and what receivers of their events know how to read.
  persistText(kJXDateFirstVisitFormat, nowString());
  persistText(kJXDateLastVisitFormat, nowString());
  persistText(kJXDateCurrentVisitFormat, nowString());
  persistText(kJXNumberSessions, "1");
  persistText(kJXNumberColdStarts, "1");
  persistText(kJXLastPID, pid_);
}

void JXPredefinedVariables::newVisitUserDefaults_currentTime(const JXString& firstVisit,
                                                             const JXString& timeMs) {
  const JXString lastVisit = persistedText(kJXDateLastVisitFormat);
  JXString currentVisit = persistedText(kJXDateCurrentVisitFormat);
  persistText(kJXLastPID, pid_);
  if (!currentVisit.isPresent()) currentVisit = firstVisit;
  if (!lastVisit.isPresent()) addData_withValue(kJXPredefinedVariable_LastVisitMs, firstVisit);

  addData_withValue(kJXPredefinedVariable_LastVisitMs, currentVisit);
  persistText(kJXDateLastVisitFormat, currentVisit);

  addData_withValue(kJXPredefinedVariable_CurrentVisitMs, timeMs);
  addData_withValue(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  persistText(kJXDateCurrentVisitFormat, timeMs);

  const JXString visits = countedUp(persistedText(kJXNumberColdStarts));
  addData_withValue(kJXPredefinedVariable_NumberVisits, visits);
  persistText(kJXNumberColdStarts, visits);

  const JXString sessions = countedUp(persistedText(kJXNumberSessions));
  addData_withValue(kJXPredefinedVariable_NumberSessions, sessions);
  persistText(kJXNumberSessions, sessions);
}

JXString JXPredefinedVariables::countedUp(const JXString& count) {
  // An empty text restarts the count; a missing one counts as 0 and comes out the same.
  if (count.isPresent() && count.size() == 0) return "1";
  return oneMoreThan(count);
}

void JXPredefinedVariables::updateVisitUserDefaults(const JXString&) {
  const JXString lastVisit = persistedText(kJXDateLastVisitFormat);
  const JXString currentVisit = persistedText(kJXDateCurrentVisitFormat);
  const JXString visits = persistedText(kJXNumberColdStarts);
  const JXString sessions = persistedText(kJXNumberSessions);
  if (lastVisit.isPresent()) addData_withValue(kJXPredefinedVariable_LastVisitMs, lastVisit);
  if (currentVisit.isPresent()) {
    addData_withValue(kJXPredefinedVariable_CurrentVisitMs, currentVisit);
    addData_withValue(kJXPredefinedVariable_CurrentSessionMs, currentVisit);
  }
  if (visits.isPresent()) addData_withValue(kJXPredefinedVariable_NumberVisits, visits);
  if (sessions.isPresent()) addData_withValue(kJXPredefinedVariable_NumberSessions, sessions);
}

void JXPredefinedVariables::updateVariablesForNewSession(const JXString& timeMs) {
  addData_withValue(kJXPredefinedVariable_LastSessionLastHitMs,
                    getData(kJXPredefinedVariable_CurrentCallMs));
  const JXString sessions = oneMoreThan(persistedText(kJXNumberSessions));
  addData_withValue(kJXPredefinedVariable_NumberSessions, sessions);
  persistText(kJXNumberSessions, sessions);
  addData_withValue(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  // Under the visit's key on purpose: the next launch reports this session's start as the last
  // visit. The visit's own variable stays.
  persistText(kJXDateCurrentVisitFormat, timeMs);
  addData_withValue(kJXPredefinedVariable_SessionID,
                    JXCoreServices::sharedInstance().platform().newUUID());
  addData_withValue(kJXPredefinedVariable_IsNewSession, "1");
}

void JXPredefinedVariables::resetNewSession() {
  addData_withValue(kJXPredefinedVariable_IsNewSession, "0");
}

void JXPredefinedVariables::initNavTimestampCalls(const JXString& timeMs) {
  if (getData(kJXPredefinedVariable_LastCallMs).isPresent()) {
    addData_withValue(kJXPredefinedVariable_LastCallMs,
                      getData(kJXPredefinedVariable_CurrentCallMs));
  } else {
    const JXString ofEarlierProcess = persistedText(kJXPredefinedVariable_LastCallMs);
    addData_withValue(kJXPredefinedVariable_LastCallMs,
                      ofEarlierProcess.isPresent() ? ofEarlierProcess : timeMs);
  }
  addData_withValue(kJXPredefinedVariable_CurrentCallMs, timeMs);
  persistText(kJXPredefinedVariable_LastCallMs, timeMs);
}

void JXPredefinedVariables::setSessionDuration(const JXString& timeMs) {
  const JXString visitStart = getData(kJXPredefinedVariable_CurrentVisitMs);
  if (!visitStart.testString()) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "Error with timestamp kJXPredefinedVariable_CurrentVisitMs", 2);
    return;
  }
  const auto time = static_cast<std::uint64_t>(JXUtils::numberFromNSString(timeMs));
  const std::uint64_t duration = time - truncatedLeadingNumber(visitStart.view()) + startUsage_;
  addData_withValue(kJXPredefinedVariable_SessionDurationMs, std::to_string(duration));
}

void JXPredefinedVariables::addTimestamp_andTimestampeMs_withTime(const JXString& key,
                                                                  const JXString& keyMs,
                                                                  std::int64_t timeS) {
  addData_withValue(key, std::to_string(timeS));
  const std::uint64_t timeMs = static_cast<std::uint64_t>(timeS) * 1000;
  addData_withValue(keyMs, std::to_string(static_cast<std::int64_t>(timeMs)));
}

}  // namespace jx
