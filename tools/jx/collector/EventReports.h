// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventRecords.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Counts over everything that is kept, all of one moment. `nowMs` tells which minutes are the
/// last.
Result<EventSummary> readSummary(SqliteDatabase& database, std::int64_t nowMs);

/// The sessions that had an event last, newest first.
Result<std::vector<SessionSummary>> readSessions(SqliteDatabase& database, std::int64_t limit);

}  // namespace jx
