// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

// Names of the predefined variables: the keys under which JXPredefinedVariables holds its texts.
// Those that end in "Ms" count milliseconds, most since the Unix epoch. The library fills all of
// them but ScreenResolution, BackgroundUxTime, DeltaBackgroundUxTime, Longitude, Latitude and
// EmptyVariableRemoveEqual, which are the host's to fill.
/// First part of the preferred language tag, "-" when none is known.
inline constexpr std::string_view kJXPredefinedVariable_Language = "#JX_LANGUAGE#";
/// Second part of the preferred language tag, "-" when it has none.
inline constexpr std::string_view kJXPredefinedVariable_Region = "#JX_REGION#";
/// Name of the operating system.
inline constexpr std::string_view kJXPredefinedVariable_SystemName = "#JX_SYSNAME#";
/// Version of the operating system.
inline constexpr std::string_view kJXPredefinedVariable_SystemVersion = "#JX_SYSVERSION#";
/// Hardware machine identifier.
inline constexpr std::string_view kJXPredefinedVariable_Model = "#JX_MODEL#";
/// Marketing model of the device.
inline constexpr std::string_view kJXPredefinedVariable_Device = "#JX_DEVICE#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_ScreenResolution = "#JX_SCREEN#";
/// Name of the default text encoding.
inline constexpr std::string_view kJXPredefinedVariable_Charset = "#JX_CHARSET#";
/// ISO 4217 code of the locale's currency, "-" when none is known.
inline constexpr std::string_view kJXPredefinedVariable_CurrencyCode = "#JX_CURRENCY_CODE#";
/// Symbol of the locale's currency.
inline constexpr std::string_view kJXPredefinedVariable_CurrencySymbol = "#JX_CURRENCY_SYMBOL#";
/// Version that a viewer sees; "" when the application states none.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationVersion =
    "#JX_APPLICATION_VERSION#";
/// "0" once the start-up has run.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationPreviousVersion =
    "#JX_APPLICATION_PREVIOUS_VERSION#";
/// Build number of the application.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationBuild = "#JX_APPLICATION_BUILD#";
/// Version of this library.
inline constexpr std::string_view kJXPredefinedVariable_NorvaneVersion = "#JX_NORVANE_VERSION#";
/// "Apple".
inline constexpr std::string_view kJXPredefinedVariable_Manufacturer = "#JX_MANUFACTURER#";
/// "1" when the integrity probe finds the device modified, else "0".
inline constexpr std::string_view kJXPredefinedVariable_JailBroken = "#JX_JAILBROKEN#";
/// How often a process of this installation was started.
inline constexpr std::string_view kJXPredefinedVariable_ColdStarts = "#JX_APPLICATION_STARTS#";
/// How often the application was in the foreground in this process, from 1.
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTransitions = "#JX_FOREGROUNDS#";
/// Time in the foreground in this process, ms.
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTime = "#JX_FOREGROUND_TIME#";
/// Time in the foreground since the event before, ms.
inline constexpr std::string_view kJXPredefinedVariable_DeltaForegroundTime =
    "#JX_DELTA_FOREGROUND_TIME#";
/// Time in the background in this process, ms.
inline constexpr std::string_view kJXPredefinedVariable_BackgroundTime = "#JX_BACKGROUND_TIME#";
/// Time in the background since the event before, ms.
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundTime =
    "#JX_DELTA_BACKGROUND_TIME#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_BackgroundUxTime =
    "#JX_BACKGROUND_UX_TIME#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundUxTime =
    "#JX_DELTA_BACKGROUND_UX_TIME#";
/// This event, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurrentCallMs = "#JX_CURRENT_CALL_MS#";
/// The event before, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_LastCallMs = "#JX_LAST_CALL_MS#";
/// Start of the session before, ms since the Unix epoch; "0" when there was none.
inline constexpr std::string_view kJXPredefinedVariable_LastSessionStartMs =
    "#JX_LAST_SESSION_START_MS#";
/// Last event of the session before, ms since the Unix epoch; "0" when there was none.
inline constexpr std::string_view kJXPredefinedVariable_LastSessionLastHitMs =
    "#JX_LAST_SESSION_LAST_HIT_MS#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_Longitude = "#JX_LONGITUDE#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_Latitude = "#JX_LATITUDE#";
/// Bundle identifier of the application.
inline constexpr std::string_view kJXPredefinedVariable_BundleID = "#JX_BUNDLE_IDENTIFIER#";
/// Name of the application, "(unknown)" when it states none.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationName = "#JX_APPLICATION_NAME#";
/// "tvos".
inline constexpr std::string_view kJXPredefinedVariable_RuntimeName = "#JX_RUNTIME_NAME#";
/// Height of the main screen in whole points.
inline constexpr std::string_view kJXPredefinedVariable_ScreenHeight = "#JX_SCREEN_HEIGHT#";
/// Width of the main screen in whole points.
inline constexpr std::string_view kJXPredefinedVariable_ScreenWidth = "#JX_SCREEN_WIDTH#";
/// First visit of the installation: ms since the Unix epoch during that visit, seconds later on.
inline constexpr std::string_view kJXPredefinedVariable_FirstVisitMs = "#JX_FIRST_VISIT_MS#";
/// The visit before: seconds since the Unix epoch when that was the first one, ms otherwise.
inline constexpr std::string_view kJXPredefinedVariable_LastVisitMs = "#JX_LAST_VISIT_MS#";
/// Start of the session, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurrentSessionMs =
    "#JX_CURRENT_SESSION_MS#";
/// Start of the visit, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurrentVisitMs = "#JX_CURRENT_VISIT_MS#";
/// Since the start of the visit, and what earlier processes carried over; ms.
inline constexpr std::string_view kJXPredefinedVariable_SessionDurationMs =
    "#JX_SESSION_DURATION_MS#";
/// First visit with this version of the application, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurVersionFirstVisitMs =
    "#JX_VERSION_FIRST_VISIT_MS#";
/// How many visits there were, this one included.
inline constexpr std::string_view kJXPredefinedVariable_NumberVisits = "#JX_NUMBER_VISIT#";
/// How many sessions there were, this one included.
inline constexpr std::string_view kJXPredefinedVariable_NumberSessions = "#JX_NUMBER_SESSION#";
/// "TRUE" when no earlier process stored the first visit of a version, else "FALSE".
inline constexpr std::string_view kJXPredefinedVariable_IsFirstVisit = "#JX_IS_FIRST_VISIT#";
/// A random UUID, made anew for each session.
inline constexpr std::string_view kJXPredefinedVariable_SessionID = "#JX_SESSION_ID#";
/// "1" for the first event of a session, else "0".
inline constexpr std::string_view kJXPredefinedVariable_IsNewSession = "#JX_NEW_SESSION#";
/// Time since the launch before that counts as this session's, ms.
inline constexpr std::string_view kJXPredefinedVariable_UserSessionDurationMs =
    "#JX_USER_SESSION_DURATION_MS#";
/// Usage time that this launch begins with, ms.
inline constexpr std::string_view kJXPredefinedVariable_UsageSessionDurationMs =
    "#JX_USAGE_SESSION_DURATION_MS#";
/// Background time of the launch before, and the time since it was left; ms.
inline constexpr std::string_view kJXPredefinedVariable_AccumulatedBackgroundTime =
    "#JX_CS_START_IT#";
/// Time since the launch before went to the background, ms; "0" when it never did.
inline constexpr std::string_view kJXPredefinedVariable_TimeSinceLastExit = "#JX_CS_START_DIT#";
/// Foreground time of the launch before, with what its last event had not counted; ms.
inline constexpr std::string_view
    kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement = "#JX_CS_START_FT#";
/// Foreground time of the launch before that its last event had not counted, ms.
inline constexpr std::string_view kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement =
    "#JX_CS_START_DFT#";
/// The host's to fill.
inline constexpr std::string_view kJXPredefinedVariable_EmptyVariableRemoveEqual =
    "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#";
/// "TRUE" for the first event of the process, else "FALSE".
inline constexpr std::string_view kJXPredefinedVariable_FirstExecute = "#JX_FIRST_EXECUTE#";

}  // namespace jx
