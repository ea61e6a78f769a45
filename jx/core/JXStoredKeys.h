// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// The keys of all strings that the library stores in the user defaults. Erasing the stored data
/// removes these keys from the settings store of the system. A key that any layer adds must be
/// added here; do not remove a key that is not written any more, because earlier versions have
/// stored it.
inline constexpr std::string_view kJXStoredKeys[] = {
    "#JX_ANONYMOUS_ID#",
    "#JX_APPLICATION_PREVIOUS_VERSION#",
    "#JX_APPLICATION_STARTS#",
    "#JX_APPLICATION_VERSION#",
    "#JX_LAST_CALL_MS#",
    "#JX_SDK_ID#",
    "#JX_VERSION_FIRST_VISIT_MS#",
    "ExitTimestamp",
    "LastBackgroundTime",
    "LastForegroundTime",
    "LastSessionStartTimestamp",
    "SessionStartTimestamp",
    "TimeSinceLastMeasurement",
    "UsageDuration",
    "jx_date_current_visit",
    "jx_date_first_visit",
    "jx_date_last_visit",
    "jx_last_pid",
    "jx_number_coldStarts",
    "jx_number_sessions",
    "jx_unique_id",
};

}  // namespace jx
