// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Visits, sessions and calls. A visit is one run of the process. A session starts with each visit,
// and again on return from a long time in the background.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/JXUtils.h"
#include "jx/platform/JXStringBuilder.h"
#include "jx/session/JXLeadingNumber.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPersistedString.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {
namespace {

// Returns the stored count plus one, wrapping around as a 32-bit integer.
std::string incremented(const JXString& count) {
  const auto number = static_cast<std::uint32_t>(JXUtils::numberFromNSString(count));
  return std::to_string(static_cast<std::int32_t>(number + 1));
}

}  // namespace

void JXPredefinedVariables::initIsFirstVisit() {
  const JXSessionLock lock;
  const bool isKnown = persistedString(kJXPredefinedVariable_CurVersionFirstVisitMs).testString();
  setVariable(kJXPredefinedVariable_IsFirstVisit, isKnown ? "FALSE" : "TRUE");
}

void JXPredefinedVariables::initLastCallLastVisit() {
  const JXSessionLock lock;
  const JXString lastCall = persistedString(kJXPredefinedVariable_LastCallMs);
  if (lastCall.testString()) {
    setVariable(kJXPredefinedVariable_LastSessionLastHitMs, lastCall);
  }
}

void JXPredefinedVariables::setVisitorIDCurrentCallUniqueID(const JXString& timeMs) {
  const JXSessionLock lock;
  setVariable(kJXPredefinedVariable_CurrentCallMs, timeMs);
  JXPlatformDefaults* const defaults = JXUserDefaults::standardUserDefaults();
  if (defaults == nullptr) return;
  const JXString newId = JXCoreServices::sharedInstance().newIdentifier();
  JXString uniqueId = defaults->objectForKey(kJXUserDefaultsKey_UniqueID);
  if (!uniqueId.isPresent()) {
    uniqueId = newId;
    defaults->setObject_forKey(uniqueId, kJXUserDefaultsKey_UniqueID);
  }
  setVariable(kJXPredefinedVariable_UniqueID, uniqueId);
  defaults->synchronize();
}

void JXPredefinedVariables::initColdStartNumber() {
  const JXSessionLock lock;
  const JXString starts = persistedString(kJXPredefinedVariable_ColdStarts);
  const JXString counted = starts.testString() ? JXString(incremented(starts)) : JXString("1");
  setVariable(kJXPredefinedVariable_ColdStarts, counted);
  persistString(kJXPredefinedVariable_ColdStarts, counted);
}

void JXPredefinedVariables::setTimestamps(const JXString& timeMs) {
  const JXSessionLock lock;
  const JXString firstVisit = persistedString(kJXDateFirstVisitFormat);
  if (!firstVisit.isPresent()) {
    setFirstVisitUserDefaults(timeMs);
    return;
  }
  setVariable(kJXPredefinedVariable_FirstVisitMs, firstVisit);
  // Two null process IDs do not identify the same process.
  const bool isSameProcess = pid_.isPresent() && persistedString(kJXLastPID) == pid_;
  if (isSameProcess) {
    updateVisitUserDefaults(timeMs);
  } else {
    newVisitUserDefaults_currentTime(firstVisit, timeMs);
  }
}

void JXPredefinedVariables::setFirstVisitUserDefaults(const JXString& timeMs) {
  const JXSessionLock lock;
  setVariable(kJXPredefinedVariable_FirstVisitMs, timeMs);
  setVariable(kJXPredefinedVariable_LastVisitMs, timeMs);
  setVariable(kJXPredefinedVariable_CurrentVisitMs, timeMs);
  setVariable(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  setVariable(kJXPredefinedVariable_NumberVisits, "1");
  setVariable(kJXPredefinedVariable_NumberSessions, "1");
  // Seconds, although the variables that read them are named after milliseconds: existing
  // installations store seconds, and servers expect them.
  persistString(kJXDateFirstVisitFormat, nowString());
  persistString(kJXDateLastVisitFormat, nowString());
  persistString(kJXDateCurrentVisitFormat, nowString());
  persistString(kJXNumberSessions, "1");
  persistString(kJXNumberColdStarts, "1");
  persistString(kJXLastPID, pid_);
}

void JXPredefinedVariables::newVisitUserDefaults_currentTime(const JXString& firstVisit,
                                                             const JXString& timeMs) {
  const JXSessionLock lock;
  const JXString lastVisit = persistedString(kJXDateLastVisitFormat);
  JXString currentVisit = persistedString(kJXDateCurrentVisitFormat);
  persistString(kJXLastPID, pid_);
  if (!currentVisit.isPresent()) currentVisit = firstVisit;
  if (!lastVisit.isPresent()) setVariable(kJXPredefinedVariable_LastVisitMs, firstVisit);

  setVariable(kJXPredefinedVariable_LastVisitMs, currentVisit);
  persistString(kJXDateLastVisitFormat, currentVisit);

  setVariable(kJXPredefinedVariable_CurrentVisitMs, timeMs);
  setVariable(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  persistString(kJXDateCurrentVisitFormat, timeMs);

  const JXString visits = nextCount(persistedString(kJXNumberColdStarts));
  setVariable(kJXPredefinedVariable_NumberVisits, visits);
  persistString(kJXNumberColdStarts, visits);

  const JXString sessions = nextCount(persistedString(kJXNumberSessions));
  setVariable(kJXPredefinedVariable_NumberSessions, sessions);
  persistString(kJXNumberSessions, sessions);
}

JXString JXPredefinedVariables::nextCount(const JXString& count) {
  // An empty string restarts the count; a null one counts as 0, with the same result.
  if (count.isPresent() && count.size() == 0) return "1";
  return incremented(count);
}

void JXPredefinedVariables::updateVisitUserDefaults(const JXString&) {
  const JXSessionLock lock;
  const JXString lastVisit = persistedString(kJXDateLastVisitFormat);
  const JXString currentVisit = persistedString(kJXDateCurrentVisitFormat);
  const JXString visits = persistedString(kJXNumberColdStarts);
  const JXString sessions = persistedString(kJXNumberSessions);
  if (lastVisit.isPresent()) setVariable(kJXPredefinedVariable_LastVisitMs, lastVisit);
  if (currentVisit.isPresent()) {
    setVariable(kJXPredefinedVariable_CurrentVisitMs, currentVisit);
    setVariable(kJXPredefinedVariable_CurrentSessionMs, currentVisit);
  }
  if (visits.isPresent()) setVariable(kJXPredefinedVariable_NumberVisits, visits);
  if (sessions.isPresent()) setVariable(kJXPredefinedVariable_NumberSessions, sessions);
}

void JXPredefinedVariables::updateVariablesForNewSession(const JXString& timeMs) {
  const JXSessionLock lock;
  setVariable(kJXPredefinedVariable_LastSessionLastHitMs,
              getData(kJXPredefinedVariable_CurrentCallMs));
  const JXString sessions = incremented(persistedString(kJXNumberSessions));
  setVariable(kJXPredefinedVariable_NumberSessions, sessions);
  persistString(kJXNumberSessions, sessions);
  setVariable(kJXPredefinedVariable_CurrentSessionMs, timeMs);
  // The visit's key is intended: the next process reports the start of this session as the last
  // visit. The variable of the visit does not change.
  persistString(kJXDateCurrentVisitFormat, timeMs);
  setVariable(kJXPredefinedVariable_SessionID, JXCoreServices::sharedInstance().newIdentifier());
  markNewSession();
}

void JXPredefinedVariables::markNewSession() {
  const JXSessionLock lock;
  Frequents(*this).set(IsNewSession, "1");
  ++sessionGeneration_;
  isNewSessionClaimed_ = false;
}

std::optional<std::uint64_t> JXPredefinedVariables::claimNewSession() {
  const JXSessionLock lock;
  const bool isNew = Frequents(*this).view(IsNewSession) == "1";
  if (!isNew || std::exchange(isNewSessionClaimed_, true)) return std::nullopt;
  return sessionGeneration_;
}

void JXPredefinedVariables::releaseNewSession(std::uint64_t generation, bool isPosted) {
  const JXSessionLock lock;
  // A session that began in the meantime has a mark of its own.
  if (generation != sessionGeneration_) return;
  isNewSessionClaimed_ = false;
  if (isPosted) Frequents(*this).set(IsNewSession, "0");
}

void JXPredefinedVariables::resetNewSession() {
  const JXSessionLock lock;
  Frequents(*this).set(IsNewSession, "0");
  isNewSessionClaimed_ = false;
}

void JXPredefinedVariables::initNavTimestampCalls(const JXString& timeMs) {
  const JXSessionLock lock;
  if (!moveCallTimes(timeMs)) {
    const JXString earlierProcessCall = persistedString(kJXPredefinedVariable_LastCallMs);
    Frequents variables(*this);
    variables.set(LastCall, earlierProcessCall.isPresent() ? earlierProcessCall : timeMs);
    variables.set(CurrentCall, timeMs);
  }
  persistString(kJXPredefinedVariable_LastCallMs, timeMs);
}

// Returns false, without a change, at the first call of this process.
bool JXPredefinedVariables::moveCallTimes(const JXString& timeMs) {
  Frequents variables(*this);
  if (!variables.get(LastCall).isPresent()) return false;
  variables.set(LastCall, variables.get(CurrentCall));
  variables.set(CurrentCall, timeMs);
  return true;
}

void JXPredefinedVariables::setSessionDuration(const JXString& timeMs) {
  const JXSessionLock lock;
  setSessionDuration(static_cast<std::uint64_t>(JXUtils::numberFromNSString(timeMs)));
}

void JXPredefinedVariables::setSessionDuration(std::uint64_t time) {
  Frequents variables(*this);
  const std::string_view visitStart = variables.view(CurrentVisit);
  if (visitStart.empty()) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "Error with timestamp kJXPredefinedVariable_CurrentVisitMs", 2);
    return;
  }
  const std::uint64_t duration = time - truncatedLeadingNumber(visitStart) + startUsage_;
  variables.set(SessionDuration, decimalString(duration));
}

void JXPredefinedVariables::addTimestamp_andTimestampeMs_withTime(const JXString& key,
                                                                  const JXString& keyMs,
                                                                  std::int64_t timeS) {
  const JXSessionLock lock;
  addData_withValue(key, std::to_string(timeS));
  const std::uint64_t timeMs = static_cast<std::uint64_t>(timeS) * 1000;
  addData_withValue(keyMs, std::to_string(static_cast<std::int64_t>(timeMs)));
}

}  // namespace jx
