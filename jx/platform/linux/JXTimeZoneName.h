// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// Returns the IANA name of the local time zone; never null or empty. `root` is the prefix of every
/// path that is read; empty for the system itself.
///
/// Uses the first of these sources that determines a name:
/// - TZ. A name ("Asia/Tokyo", with or without ':') is returned unchanged, even if the zone
/// database
///   is not installed. If the database is installed and has no such zone, or if the value is not a
///   name, returns "UTC", the time zone that the C library uses in that case. A path in the
///   database, or a link to one, yields its name; other paths are ignored. A rule such as
///   "CET-1CEST" yields the zone of that name or of its letters, if the database has it; a rule
///   without summer time and with whole hours yields "Etc/GMT-9"; else "UTC".
/// - /etc/timezone.
/// - The target of /etc/localtime, relative to the folder "zoneinfo".
/// - "UTC".
JXString localTimeZoneName(const JXEnvironment& environment, const std::string& root);

}  // namespace jx
