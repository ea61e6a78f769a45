// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Names that applications, servers and existing installations rely on. A changed name loses data,
// so each string is repeated here.

#include "jx/session/JXPredefinedVariableNames.h"

#include <gtest/gtest.h>

#include "jx/core/JXCoreConstants.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx::test {
namespace {

TEST(PredefinedVariableNames, MatchPublishedStrings) {
  EXPECT_EQ(kJXPredefinedVariable_Language, "#JX_LANGUAGE#");
  EXPECT_EQ(kJXPredefinedVariable_Region, "#JX_REGION#");
  EXPECT_EQ(kJXPredefinedVariable_SystemName, "#JX_SYSNAME#");
  EXPECT_EQ(kJXPredefinedVariable_SystemVersion, "#JX_SYSVERSION#");
  EXPECT_EQ(kJXPredefinedVariable_Model, "#JX_MODEL#");
  EXPECT_EQ(kJXPredefinedVariable_Device, "#JX_DEVICE#");
  EXPECT_EQ(kJXPredefinedVariable_ScreenResolution, "#JX_SCREEN#");
  EXPECT_EQ(kJXPredefinedVariable_Charset, "#JX_CHARSET#");
  EXPECT_EQ(kJXPredefinedVariable_CurrencyCode, "#JX_CURRENCY_CODE#");
  EXPECT_EQ(kJXPredefinedVariable_CurrencySymbol, "#JX_CURRENCY_SYMBOL#");
  EXPECT_EQ(kJXPredefinedVariable_ApplicationVersion, "#JX_APPLICATION_VERSION#");
  EXPECT_EQ(kJXPredefinedVariable_ApplicationPreviousVersion, "#JX_APPLICATION_PREVIOUS_VERSION#");
  EXPECT_EQ(kJXPredefinedVariable_ApplicationBuild, "#JX_APPLICATION_BUILD#");
  EXPECT_EQ(kJXPredefinedVariable_NorvaneVersion, "#JX_NORVANE_VERSION#");
  EXPECT_EQ(kJXPredefinedVariable_Manufacturer, "#JX_MANUFACTURER#");
  EXPECT_EQ(kJXPredefinedVariable_JailBroken, "#JX_JAILBROKEN#");
  EXPECT_EQ(kJXPredefinedVariable_ColdStarts, "#JX_APPLICATION_STARTS#");
  EXPECT_EQ(kJXPredefinedVariable_ForegroundTransitions, "#JX_FOREGROUNDS#");
  EXPECT_EQ(kJXPredefinedVariable_ForegroundTime, "#JX_FOREGROUND_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_DeltaForegroundTime, "#JX_DELTA_FOREGROUND_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_BackgroundTime, "#JX_BACKGROUND_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_DeltaBackgroundTime, "#JX_DELTA_BACKGROUND_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_BackgroundUxTime, "#JX_BACKGROUND_UX_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_DeltaBackgroundUxTime, "#JX_DELTA_BACKGROUND_UX_TIME#");
  EXPECT_EQ(kJXPredefinedVariable_CurrentCallMs, "#JX_CURRENT_CALL_MS#");
  EXPECT_EQ(kJXPredefinedVariable_LastCallMs, "#JX_LAST_CALL_MS#");
  EXPECT_EQ(kJXPredefinedVariable_LastSessionStartMs, "#JX_LAST_SESSION_START_MS#");
  EXPECT_EQ(kJXPredefinedVariable_LastSessionLastHitMs, "#JX_LAST_SESSION_LAST_HIT_MS#");
  EXPECT_EQ(kJXPredefinedVariable_Longitude, "#JX_LONGITUDE#");
  EXPECT_EQ(kJXPredefinedVariable_Latitude, "#JX_LATITUDE#");
  EXPECT_EQ(kJXPredefinedVariable_BundleID, "#JX_BUNDLE_IDENTIFIER#");
  EXPECT_EQ(kJXPredefinedVariable_ApplicationName, "#JX_APPLICATION_NAME#");
  EXPECT_EQ(kJXPredefinedVariable_RuntimeName, "#JX_RUNTIME_NAME#");
  EXPECT_EQ(kJXPredefinedVariable_ScreenHeight, "#JX_SCREEN_HEIGHT#");
  EXPECT_EQ(kJXPredefinedVariable_ScreenWidth, "#JX_SCREEN_WIDTH#");
  EXPECT_EQ(kJXPredefinedVariable_FirstVisitMs, "#JX_FIRST_VISIT_MS#");
  EXPECT_EQ(kJXPredefinedVariable_LastVisitMs, "#JX_LAST_VISIT_MS#");
  EXPECT_EQ(kJXPredefinedVariable_CurrentSessionMs, "#JX_CURRENT_SESSION_MS#");
  EXPECT_EQ(kJXPredefinedVariable_CurrentVisitMs, "#JX_CURRENT_VISIT_MS#");
  EXPECT_EQ(kJXPredefinedVariable_SessionDurationMs, "#JX_SESSION_DURATION_MS#");
  EXPECT_EQ(kJXPredefinedVariable_CurVersionFirstVisitMs, "#JX_VERSION_FIRST_VISIT_MS#");
  EXPECT_EQ(kJXPredefinedVariable_NumberVisits, "#JX_NUMBER_VISIT#");
  EXPECT_EQ(kJXPredefinedVariable_NumberSessions, "#JX_NUMBER_SESSION#");
  EXPECT_EQ(kJXPredefinedVariable_IsFirstVisit, "#JX_IS_FIRST_VISIT#");
  EXPECT_EQ(kJXPredefinedVariable_SessionID, "#JX_SESSION_ID#");
  EXPECT_EQ(kJXPredefinedVariable_IsNewSession, "#JX_NEW_SESSION#");
  EXPECT_EQ(kJXPredefinedVariable_UserSessionDurationMs, "#JX_USER_SESSION_DURATION_MS#");
  EXPECT_EQ(kJXPredefinedVariable_UsageSessionDurationMs, "#JX_USAGE_SESSION_DURATION_MS#");
  EXPECT_EQ(kJXPredefinedVariable_AccumulatedBackgroundTime, "#JX_CS_START_IT#");
  EXPECT_EQ(kJXPredefinedVariable_TimeSinceLastExit, "#JX_CS_START_DIT#");
  EXPECT_EQ(kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement, "#JX_CS_START_FT#");
  EXPECT_EQ(kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement, "#JX_CS_START_DFT#");
  EXPECT_EQ(kJXPredefinedVariable_EmptyVariableRemoveEqual, "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#");
  EXPECT_EQ(kJXPredefinedVariable_FirstExecute, "#JX_FIRST_EXECUTE#");
}

TEST(PredefinedVariableNames, OfTheCoreMatchPublishedStrings) {
  EXPECT_EQ(kJXPredefinedVariable_IDFA, "#JX_IDFA#");
  EXPECT_EQ(kJXPredefinedVariable_IDFV, "#JX_IDFV#");
  EXPECT_EQ(kJXPredefinedVariable_SDKID, "#JX_SDK_ID#");
  EXPECT_EQ(kJXPredefinedVariable_UniqueID, "#JX_UNIQUE_ID#");
  EXPECT_EQ(kJXPredefinedVariable_UserAgent, "#JX_USER_AGENT#");
  EXPECT_EQ(kJXPredefinedVariable_isTrackingEnabled, "#JX_IS_TRACKING_ENABLED#");
  EXPECT_EQ(JX_ConsentVersion, "#JX_CONSENT_VERSION#");
}

TEST(PersistedKeys, OfVisitsAndSessionsMatchExistingInstallations) {
  EXPECT_EQ(kJXUserDefaultsKey_UniqueID, "jx_unique_id");
  EXPECT_EQ(kJXDateFirstVisitFormat, "jx_date_first_visit");
  EXPECT_EQ(kJXDateLastVisitFormat, "jx_date_last_visit");
  EXPECT_EQ(kJXDateCurrentVisitFormat, "jx_date_current_visit");
  EXPECT_EQ(kJXNumberColdStarts, "jx_number_coldStarts");
  EXPECT_EQ(kJXNumberSessions, "jx_number_sessions");
  EXPECT_EQ(kJXLastPID, "jx_last_pid");
}

TEST(PersistedKeys, OfUsageTimingMatchExistingInstallations) {
  EXPECT_EQ(kJXTimeSinceLastMeasurement, "TimeSinceLastMeasurement");
  EXPECT_EQ(kJXExitTimestamp, "ExitTimestamp");
  EXPECT_EQ(kJXLastForegroundTime, "LastForegroundTime");
  EXPECT_EQ(kJXLastBackgroundTime, "LastBackgroundTime");
  EXPECT_EQ(kJXUsageDuration, "UsageDuration");
  EXPECT_EQ(kJXSessionStartTimestamp, "SessionStartTimestamp");
  EXPECT_EQ(kJXLastSessionStartTimestamp, "LastSessionStartTimestamp");
}

TEST(Manufacturer, IsTheNameThatServersExpect) { EXPECT_EQ(kJXManufacturerName, "Apple"); }

TEST(VisitDuration, DefaultsToEighteenHundredSeconds) {
  EXPECT_EQ(kJXVisitDurationDefaultValue, std::int64_t{1800});
}

}  // namespace
}  // namespace jx::test
