// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Time in the foreground and in the background, in this process and carried over from earlier ones.
// All arithmetic is unsigned and wraps around, so that the result is defined if the clock is set
// back.

#include <algorithm>
#include <cstdint>
#include <exception>
#include <limits>
#include <string>

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUtils.h"
#include "jx/platform/JXConcat.h"
#include "jx/platform/JXStringBuilder.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPersistedString.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXSession.h"

namespace jx {
namespace {

void logInvalid(const std::exception& error) {
  JXLogger::sharedInstance().logMessage_withLevel(
      concat({"Invalid value when converting to number: ", error.what(), " <> (null)"}), 3);
}

// Runs a start-up computation on stored strings. An exception is logged and the rest of the
// computation is skipped; values already set are kept, and the start-up continues.
template <typename Computation>
void guarded(const Computation& computation) {
  try {
    computation();
  } catch (const std::exception& error) {
    logInvalid(error);
  }
}

}  // namespace

void JXPredefinedVariables::didEnterBackground(const JXNotification&) {
  JXSession::sharedInstance().renewIfErased();
  const JXSessionLock lock;
  isBackground_ = true;
  const std::uint64_t now = unsignedNowMs();
  const std::uint64_t sinceLastTime = now - lastTime_;
  persistString(kJXTimeSinceLastMeasurement, decimalString(sinceLastTime));
  persistString(kJXExitTimestamp, decimalString(now));
  persistString(kJXLastForegroundTime, decimalString(totalForegroundTime_));
  persistString(kJXLastBackgroundTime, decimalString(totalBackgroundTime_));
  // After a second notification in a row, the time since the first one counts as foreground time:
  // according to the system, the application has only now left the foreground.
  totalForegroundTime_ += sinceLastTime;
  deltaForeground_ += sinceLastTime;
  lastTime_ = now;
}

void JXPredefinedVariables::willEnterForeground(const JXNotification&) {
  JXSession::sharedInstance().renewIfErased();
  const JXSessionLock lock;
  if (!isBackground_) return;
  isBackground_ = false;
  totalForegroundTransitions_ =
      static_cast<std::int32_t>(static_cast<std::uint32_t>(totalForegroundTransitions_) + 1);
  setVariable(kJXPredefinedVariable_ForegroundTransitions,
              std::to_string(totalForegroundTransitions_));
  const std::uint64_t now = unsignedNowMs();
  deltaBackground_ = now - lastTime_;
  totalBackgroundTime_ += deltaBackground_;
  lastTime_ = now;
  if (deltaBackground_ > visitDuration_) updateVariablesForNewSession(decimalString(now));
}

void JXPredefinedVariables::computeTimeChangingVariables() {
  const JXSessionLock lock;
  const JXUserDefaults::Changes batch;
  const std::uint64_t now = unsignedNowMs();
  const JXString timeMs = decimalString(now);
  // Limited as the number in a string.
  constexpr std::uint64_t kMax = std::numeric_limits<std::int64_t>::max();
  setSessionDuration(std::min(now, kMax));
  initNavTimestampCalls(timeMs);

  const std::uint64_t sinceLastTime = now - lastTime_;
  if (isBackground_) {
    deltaBackground_ += sinceLastTime;
    totalBackgroundTime_ += sinceLastTime;
  } else {
    deltaForeground_ += sinceLastTime;
    totalForegroundTime_ += sinceLastTime;
  }
  lastTime_ = now;
  {
    Frequents variables(*this);
    variables.set(ForegroundTime, decimalString(totalForegroundTime_));
    variables.set(DeltaForeground, decimalString(deltaForeground_));
    variables.set(BackgroundTime, decimalString(totalBackgroundTime_));
    variables.set(DeltaBackground, decimalString(deltaBackground_));
  }
  persistString(kJXUsageDuration, decimalString(deltaForeground_ + deltaBackground_ + startUsage_));
  deltaBackground_ = 0;
  deltaForeground_ = 0;
}

void JXPredefinedVariables::initComScoreSession(const JXString& timeMs) {
  const JXSessionLock lock;
  guarded([&] {
    const JXString sessionStart = persistedString(kJXSessionStartTimestamp);
    setVariable(kJXPredefinedVariable_SessionID, JXCoreServices::sharedInstance().newIdentifier());
    markNewSession();
    if (sessionStart.isPresent()) {
      // Measured from the stored start, not from the last activity.
      const std::uint64_t sinceStart =
          JXUtils::unsignedFromDigits(timeMs) - JXUtils::unsignedFromDigits(sessionStart);
      const bool renewed = sinceStart > visitDuration_;
      if (renewed) {
        persistString(kJXSessionStartTimestamp, timeMs);
        persistString(kJXLastSessionStartTimestamp, sessionStart);
        setVariable(kJXPredefinedVariable_LastSessionStartMs, sessionStart);
      }
      computeDeltaSinceLastLaunch(timeMs);
      computeStartUsageTime(renewed);
    } else {
      persistString(kJXSessionStartTimestamp, timeMs);
      persistString(kJXLastSessionStartTimestamp, "0");
      persistString(kJXUsageDuration, "0");
      setVariable(kJXPredefinedVariable_LastSessionStartMs, "0");
      setVariable(kJXPredefinedVariable_LastSessionLastHitMs, "0");
      setVariable(kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement, "0");
      setVariable(kJXPredefinedVariable_TimeSinceLastExit, "0");
      computeDeltaSinceLastLaunch(timeMs);
      computeStartUsageTime(true);
    }
    setVariable(kJXPredefinedVariable_LastSessionStartMs,
                persistedString(kJXLastSessionStartTimestamp));
  });
}

void JXPredefinedVariables::computeDeltaSinceLastLaunch(const JXString& timeMs) {
  const JXSessionLock lock;
  guarded([&] {
    const JXString exit = persistedString(kJXExitTimestamp);
    const JXString background = persistedString(kJXLastBackgroundTime);
    const JXString unmeasured = persistedString(kJXTimeSinceLastMeasurement);
    const JXString foreground = persistedString(kJXLastForegroundTime);
    setVariable(kJXPredefinedVariable_TimeSinceLastExit, "0");
    setVariable(kJXPredefinedVariable_AccumulatedBackgroundTime, "0");
    setVariable(kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement, "0");
    setVariable(kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement, "0");
    if (!exit.isPresent() || !background.isPresent() || !unmeasured.isPresent() ||
        !foreground.isPresent()) {
      return;
    }
    const std::uint64_t sinceExit =
        JXUtils::unsignedFromDigits(timeMs) - JXUtils::unsignedFromDigits(exit);
    const std::uint64_t unmeasuredMs = JXUtils::unsignedFromDigits(unmeasured);
    setVariable(kJXPredefinedVariable_AccumulatedBackgroundTime,
                decimalString(JXUtils::unsignedFromDigits(background) + sinceExit));
    setVariable(kJXPredefinedVariable_TimeSinceLastExit, decimalString(sinceExit));
    setVariable(kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement, unmeasured);
    setVariable(kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement,
                decimalString(unmeasuredMs + JXUtils::unsignedFromDigits(foreground)));
  });
}

void JXPredefinedVariables::computeStartUsageTime(bool renewed) {
  const JXSessionLock lock;
  guarded([&] {
    const JXString usage = persistedString(kJXUsageDuration);
    if (usage.isPresent()) startUsage_ = JXUtils::unsignedFromDigits(usage);
    const std::uint64_t unmeasured = JXUtils::unsignedFromDigits(
        getData(kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement));
    const std::uint64_t sinceExit =
        JXUtils::unsignedFromDigits(getData(kJXPredefinedVariable_TimeSinceLastExit));
    const std::uint64_t userSession = sinceExit + (renewed ? 0 : unmeasured);
    setVariable(kJXPredefinedVariable_UserSessionDurationMs, decimalString(userSession));
    startUsage_ += userSession;
    setVariable(kJXPredefinedVariable_UsageSessionDurationMs, decimalString(startUsage_));
  });
}

}  // namespace jx
