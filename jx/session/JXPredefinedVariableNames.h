// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

// Names of the predefined variables: the keys of the strings in JXPredefinedVariables. Names that
// end in "Ms" are in milliseconds, most of them since the Unix epoch. The library sets all of them
// except ScreenResolution, BackgroundUxTime, DeltaBackgroundUxTime, Longitude, Latitude and
// EmptyVariableRemoveEqual, which the application may set.
/// First part of the preferred language tag; "-" if the tag has no second part.
inline constexpr std::string_view kJXPredefinedVariable_Language = "#JX_LANGUAGE#";
/// Second part of the preferred language tag; "-" if the tag has no second part.
inline constexpr std::string_view kJXPredefinedVariable_Region = "#JX_REGION#";
/// Operating system name.
inline constexpr std::string_view kJXPredefinedVariable_SystemName = "#JX_SYSNAME#";
/// Operating system version.
inline constexpr std::string_view kJXPredefinedVariable_SystemVersion = "#JX_SYSVERSION#";
/// Hardware machine identifier.
inline constexpr std::string_view kJXPredefinedVariable_Model = "#JX_MODEL#";
/// Marketing model of the device.
inline constexpr std::string_view kJXPredefinedVariable_Device = "#JX_DEVICE#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_ScreenResolution = "#JX_SCREEN#";
/// Name of the default text encoding.
inline constexpr std::string_view kJXPredefinedVariable_Charset = "#JX_CHARSET#";
/// ISO 4217 code of the locale's currency; "-" if unknown.
inline constexpr std::string_view kJXPredefinedVariable_CurrencyCode = "#JX_CURRENCY_CODE#";
/// Symbol of the locale's currency.
inline constexpr std::string_view kJXPredefinedVariable_CurrencySymbol = "#JX_CURRENCY_SYMBOL#";
/// Application version shown to users; "" if it is not configured.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationVersion =
    "#JX_APPLICATION_VERSION#";
/// Always "0" after start-up.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationPreviousVersion =
    "#JX_APPLICATION_PREVIOUS_VERSION#";
/// Build number of the application.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationBuild = "#JX_APPLICATION_BUILD#";
/// Version of this library.
inline constexpr std::string_view kJXPredefinedVariable_NorvaneVersion = "#JX_NORVANE_VERSION#";
/// "Apple".
inline constexpr std::string_view kJXPredefinedVariable_Manufacturer = "#JX_MANUFACTURER#";
/// "1" if the integrity check finds the device modified, "0" otherwise.
inline constexpr std::string_view kJXPredefinedVariable_JailBroken = "#JX_JAILBROKEN#";
/// Number of process starts of this installation.
inline constexpr std::string_view kJXPredefinedVariable_ColdStarts = "#JX_APPLICATION_STARTS#";
/// Number of times that the application was in the foreground in this process, from 1.
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTransitions = "#JX_FOREGROUNDS#";
/// Time in the foreground in this process, ms.
inline constexpr std::string_view kJXPredefinedVariable_ForegroundTime = "#JX_FOREGROUND_TIME#";
/// Time in the foreground since the previous event, ms.
inline constexpr std::string_view kJXPredefinedVariable_DeltaForegroundTime =
    "#JX_DELTA_FOREGROUND_TIME#";
/// Time in the background in this process, ms.
inline constexpr std::string_view kJXPredefinedVariable_BackgroundTime = "#JX_BACKGROUND_TIME#";
/// Time in the background since the previous event, ms.
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundTime =
    "#JX_DELTA_BACKGROUND_TIME#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_BackgroundUxTime =
    "#JX_BACKGROUND_UX_TIME#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_DeltaBackgroundUxTime =
    "#JX_DELTA_BACKGROUND_UX_TIME#";
/// Time of the current event, ms since the Unix epoch; before the first event, the process start.
inline constexpr std::string_view kJXPredefinedVariable_CurrentCallMs = "#JX_CURRENT_CALL_MS#";
/// Time of the previous event, ms since the Unix epoch. For the first event of a process this is
/// the last event of an earlier process, or the event's own time if there was none.
inline constexpr std::string_view kJXPredefinedVariable_LastCallMs = "#JX_LAST_CALL_MS#";
/// Start of an earlier measured session, ms since the Unix epoch. The stored start becomes this
/// value when a process starts more than 30 minutes after it; "0" until then. Sessions that begin
/// on a return from the background do not change it.
inline constexpr std::string_view kJXPredefinedVariable_LastSessionStartMs =
    "#JX_LAST_SESSION_START_MS#";
/// Last event of the previous session, ms since the Unix epoch. "0" in the first process of the
/// installation; not set in a later process if no earlier process executed an event. After a new
/// session in the background: the last event of this process, or its start if there was none.
inline constexpr std::string_view kJXPredefinedVariable_LastSessionLastHitMs =
    "#JX_LAST_SESSION_LAST_HIT_MS#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_Longitude = "#JX_LONGITUDE#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_Latitude = "#JX_LATITUDE#";
/// Bundle identifier of the application.
inline constexpr std::string_view kJXPredefinedVariable_BundleID = "#JX_BUNDLE_IDENTIFIER#";
/// Application name; "(unknown)" if it is not configured.
inline constexpr std::string_view kJXPredefinedVariable_ApplicationName = "#JX_APPLICATION_NAME#";
/// "tvos".
inline constexpr std::string_view kJXPredefinedVariable_RuntimeName = "#JX_RUNTIME_NAME#";
/// Height of the main screen in whole points.
inline constexpr std::string_view kJXPredefinedVariable_ScreenHeight = "#JX_SCREEN_HEIGHT#";
/// Width of the main screen in whole points.
inline constexpr std::string_view kJXPredefinedVariable_ScreenWidth = "#JX_SCREEN_WIDTH#";
/// First visit of the installation: ms since the Unix epoch during that visit, seconds in all later
/// visits.
inline constexpr std::string_view kJXPredefinedVariable_FirstVisitMs = "#JX_FIRST_VISIT_MS#";
/// Start of the last session of the previous visit, ms since the Unix epoch. In seconds if that
/// session was the first one of the first visit. During the first visit: its own start, in ms.
inline constexpr std::string_view kJXPredefinedVariable_LastVisitMs = "#JX_LAST_VISIT_MS#";
/// Start of the session, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurrentSessionMs =
    "#JX_CURRENT_SESSION_MS#";
/// Start of the visit, ms since the Unix epoch.
inline constexpr std::string_view kJXPredefinedVariable_CurrentVisitMs = "#JX_CURRENT_VISIT_MS#";
/// Time since the start of the visit, plus the usage time carried over from earlier processes, ms.
inline constexpr std::string_view kJXPredefinedVariable_SessionDurationMs =
    "#JX_SESSION_DURATION_MS#";
/// First visit with this version of the application, ms since the Unix epoch; not set if no process
/// has had a version.
inline constexpr std::string_view kJXPredefinedVariable_CurVersionFirstVisitMs =
    "#JX_VERSION_FIRST_VISIT_MS#";
/// Number of visits, including the current one.
inline constexpr std::string_view kJXPredefinedVariable_NumberVisits = "#JX_NUMBER_VISIT#";
/// Number of sessions, including the current one.
inline constexpr std::string_view kJXPredefinedVariable_NumberSessions = "#JX_NUMBER_SESSION#";
/// "TRUE" if no earlier process has stored the first visit of a version, "FALSE" otherwise.
inline constexpr std::string_view kJXPredefinedVariable_IsFirstVisit = "#JX_IS_FIRST_VISIT#";
/// A random UUID, created for each session.
inline constexpr std::string_view kJXPredefinedVariable_SessionID = "#JX_SESSION_ID#";
/// "1" for the first event of a session, "0" otherwise.
inline constexpr std::string_view kJXPredefinedVariable_IsNewSession = "#JX_NEW_SESSION#";
/// Time since an earlier process last went to the background, plus its unmeasured foreground time
/// unless a new measured session starts, ms.
inline constexpr std::string_view kJXPredefinedVariable_UserSessionDurationMs =
    "#JX_USER_SESSION_DURATION_MS#";
/// Usage time at the start of this process, ms.
inline constexpr std::string_view kJXPredefinedVariable_UsageSessionDurationMs =
    "#JX_USAGE_SESSION_DURATION_MS#";
/// Background time of the process that last went to the background, plus the time since then, ms.
inline constexpr std::string_view kJXPredefinedVariable_AccumulatedBackgroundTime =
    "#JX_CS_START_IT#";
/// Time since an earlier process last went to the background, ms; "0" if none did.
inline constexpr std::string_view kJXPredefinedVariable_TimeSinceLastExit = "#JX_CS_START_DIT#";
/// Foreground time of the process that last went to the background, measured and unmeasured, ms.
inline constexpr std::string_view
    kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement = "#JX_CS_START_FT#";
/// Unmeasured foreground time of the process that last went to the background: the time since its
/// last event or transition, ms.
inline constexpr std::string_view kJXPredefinedVariable_LastForegroundTimeWithoutMeasurement =
    "#JX_CS_START_DFT#";
/// Set by the application.
inline constexpr std::string_view kJXPredefinedVariable_EmptyVariableRemoveEqual =
    "#JX_EMPTY_VARIABLE_REMOVE_EQUAL#";
/// "TRUE" for the first event of the process, "FALSE" otherwise.
inline constexpr std::string_view kJXPredefinedVariable_FirstExecute = "#JX_FIRST_EXECUTE#";

}  // namespace jx
