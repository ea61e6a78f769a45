// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Counts all stored events in one snapshot of the database. `nowMs` is the current time, which
/// selects the last sixty minutes.
Result<EventSummary> readSummary(SqliteDatabase& database, std::int64_t nowMs);

/// Returns at most `limit` sessions in one snapshot, those with the most recent events first.
Result<std::vector<SessionSummary>> readSessions(SqliteDatabase& database, std::int64_t limit);

}  // namespace jx
