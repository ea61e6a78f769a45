// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

// Keys of the persisted strings. Some predefined variables are also persisted, under their own
// name.

/// @name Visits and sessions
/// @{
inline constexpr std::string_view kJXUserDefaultsKey_UniqueID = "jx_unique_id";
inline constexpr std::string_view kJXDateFirstVisitFormat = "jx_date_first_visit";
inline constexpr std::string_view kJXDateLastVisitFormat = "jx_date_last_visit";
inline constexpr std::string_view kJXDateCurrentVisitFormat = "jx_date_current_visit";
/// The visit count, in spite of its name: existing installations store it under this key. The
/// number of process starts is `kJXPredefinedVariable_ColdStarts`.
inline constexpr std::string_view kJXNumberColdStarts = "jx_number_coldStarts";
inline constexpr std::string_view kJXNumberSessions = "jx_number_sessions";
inline constexpr std::string_view kJXLastPID = "jx_last_pid";
/// @}

/// @name Usage timing
/// @{
inline constexpr std::string_view kJXTimeSinceLastMeasurement = "TimeSinceLastMeasurement";
inline constexpr std::string_view kJXSessionStartTimestamp = "SessionStartTimestamp";
inline constexpr std::string_view kJXLastSessionStartTimestamp = "LastSessionStartTimestamp";
inline constexpr std::string_view kJXExitTimestamp = "ExitTimestamp";
inline constexpr std::string_view kJXUsageDuration = "UsageDuration";
inline constexpr std::string_view kJXLastForegroundTime = "LastForegroundTime";
inline constexpr std::string_view kJXLastBackgroundTime = "LastBackgroundTime";
/// @}

}  // namespace jx
