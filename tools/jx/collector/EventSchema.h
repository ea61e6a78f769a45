// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/Result.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Brings a database of events, new or of an earlier version, to the tables that this program
/// knows. Reports one that a newer program wrote, and leaves it as it is.
Done migrateEvents(SqliteDatabase& database);

}  // namespace jx
