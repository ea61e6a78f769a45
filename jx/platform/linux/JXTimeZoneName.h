// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// The IANA name of the local time zone; never absent or empty. `root` stands before every path
/// that is read; empty for the system itself.
///
/// The first of these that tells one:
/// - TZ. A name ("Asia/Tokyo", with or without ':') is taken as it is, also where the zone
///   database is not installed; where it is installed and has no such zone, and for a text that is
///   no name, the answer is "UTC", the time that the C library then uses. A path below the
///   database, or a link to one, is its name; any other path tells nothing. A rule such as
///   "CET-1CEST" is its own name where the database has it, or the name of its letters; a rule
///   without summer time and with whole hours is "Etc/GMT-9"; else "UTC".
/// - /etc/timezone.
/// - where /etc/localtime points, below the folder "zoneinfo".
/// - "UTC".
JXString localTimeZoneName(const JXEnvironment& environment, const std::string& root);

}  // namespace jx
