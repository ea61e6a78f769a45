// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

// Names of the predefined variables: the keys under which JXPredefinedVariables holds its texts.
// Those that end in "Ms" count milliseconds, most since the Unix epoch. The library fills all of
// them but ScreenResolution, BackgroundUxTime, DeltaBackgroundUxTime, Longitude, Latitude and
// EmptyVariableRemoveEqual, which are the host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_Language = "#JX_LANGUAGE#";
inline constexpr std::string_view kJXPredefinedVariable_Region = "#JX_REGION#";
inline constexpr std::string_view kJXPredefinedVariable_SystemName = "#JX_SYSNAME#";
inline constexpr std::string_view kJXPredefinedVariable_SystemVersion = "#JX_SYSVERSION#";
inline constexpr std::string_view kJXPredefinedVariable_Model = "#JX_MODEL#";
inline constexpr std::string_view kJXPredefinedVariable_Device = "#JX_DEVICE#";
inline constexpr std::string_view kJXPredefinedVariable_ScreenResolution = "#JX_SCREEN#";
inline constexpr std::string_view kJXPredefinedVariable_Charset = "#JX_CHARSET#";
inline constexpr std::string_view kJXPredefinedVariable_CurrencyCode = "#JX_CURRENCY_CODE#";
inline constexpr std::string_view kJXPredefinedVariable_CurrencySymbol = "#JX_CURRENCY_SYMBOL#";
inline constexpr std::string_view kJXPredefinedVariable_ApplicationVersion =
    "#JX_APPLICATION_VERSION#";
inline constexpr std::string_view kJXPredefinedVariable_ApplicationPreviousVersion =
    "#JX_APPLICATION_PREVIOUS_VERSION#";
inline constexpr std::string_view kJXPredefinedVariable_ApplicationBuild = "#JX_APPLICATION_BUILD#";
inline constexpr std::string_view kJXPredefinedVariable_NorvaneVersion = "#JX_NORVANE_VERSION#";
inline constexpr std::string_view kJXPredefinedVariable_Manufacturer = "#JX_MANUFACTURER#";
inline constexpr std::string_view kJXPredefinedVariable_JailBroken = "#JX_JAILBROKEN#";
inline constexpr std::string_view kJXPredefinedVariable_ColdStarts = "#JX_APPLICATION_STARTS#";
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTransitions = "#JX_FOREGROUNDS#";
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTime = "#JX_FOREGROUND_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_DeltaForegroundTime =
    "#JX_DELTA_FOREGROUND_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_BackgroundTime = "#JX_BACKGROUND_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundTime =
    "#JX_DELTA_BACKGROUND_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_BackgroundUxTime =
    "#JX_BACKGROUND_UX_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundUxTime =
    "#JX_DELTA_BACKGROUND_UX_TIME#";
inline constexpr std::string_view kJXPredefinedVariable_CurrentCallMs = "#JX_CURRENT_CALL_MS#";
inline constexpr std::string_view kJXPredefinedVariable_LastCallMs = "#JX_LAST_CALL_MS#";
inline constexpr std::string_view kJXPredefinedVariable_LastSessionStartMs =
    "#JX_LAST_SESSION_START_MS#";
inline constexpr std::string_view kJXPredefinedVariable_LastSessionLastHitMs =
    "#JX_LAST_SESSION_LAST_HIT_MS#";
inline constexpr std::string_view kJXPredefinedVariable_Longitude = "#JX_LONGITUDE#";
inline constexpr std::string_view kJXPredefinedVariable_Latitude = "#JX_LATITUDE#";
inline constexpr std::string_view kJXPredefinedVariable_BundleID = "#JX_BUNDLE_IDENTIFIER#";
inline constexpr std::string_view kJXPredefinedVariable_ApplicationName = "#JX_APPLICATION_NAME#";
inline constexpr std::string_view kJXPredefinedVariable_RuntimeName = "#JX_RUNTIME_NAME#";
inline constexpr std::string_view kJXPredefinedVariable_ScreenHeight = "#JX_SCREEN_HEIGHT#";
inline constexpr std::string_view kJXPredefinedVariable_ScreenWidth = "#JX_SCREEN_WIDTH#";
inline constexpr std::string_view kJXPredefinedVariable_FirstVisitMs = "#JX_FIRST_VISIT_MS#";
inline constexpr std::string_view kJXPredefinedVariable_LastVisitMs = "#JX_LAST_VISIT_MS#";
inline constexpr std::string_view kJXPredefinedVariable_CurrentSessionMs =
    "#JX_CURRENT_SESSION_MS#";
inline constexpr std::string_view kJXPredefinedVariable_CurrentVisitMs = "#JX_CURRENT_VISIT_MS#";
inline constexpr std::string_view kJXPredefinedVariable_SessionDurationMs =
    "#JX_SESSION_DURATION_MS#";
inline constexpr std::string_view kJXPredefinedVariable_CurVersionFirstVisitMs =
    "#JX_VERSION_FIRST_VISIT_MS#";
inline constexpr std::string_view kJXPredefinedVariable_NumberVisits = "#JX_NUMBER_VISIT#";
inline constexpr std::string_view kJXPredefinedVariable_NumberSessions = "#JX_NUMBER_SESSION#";
inline constexpr std::string_view kJXPredefinedVariable_IsFirstVisit = "#JX_IS_FIRST_VISIT#";
inline constexpr std::string_view kJXPredefinedVariable_SessionID = "#JX_SESSION_ID#";
inline constexpr std::string_view kJXPredefinedVariable_IsNewSession = "#JX_NEW_SESSION#";
inline constexpr std::string_view kJXPredefinedVariable_UserSessionDurationMs =
    "#JX_USER_SESSION_DURATION_MS#";
inline constexpr std::string_view kJXPredefinedVariable_UsageSessionDurationMs =
    "#JX_USAGE_SESSION_DURATION_MS#";
inline constexpr std::string_view kJXPredefinedVariable_AccumulatedBackgroundTime =
    "#JX_CS_START_IT#";
inline constexpr std::string_view kJXPredefinedVariable_TimeSinceLastExit = "#JX_CS_START_DIT#";
inline constexpr std::string_view
    kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement = "#JX_CS_START_FT#";
inline constexpr std::string_view kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement =
    "#JX_CS_START_DFT#";
inline constexpr std::string_view kJXPredefinedVariable_EmptyVariableRemoveEqual =
    "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#";
inline constexpr std::string_view kJXPredefinedVariable_FirstExecute = "#JX_FIRST_EXECUTE#";

}  // namespace jx
