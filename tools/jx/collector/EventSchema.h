// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/Result.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {

/// Migrates a new or older database to the current schema. Returns an error and changes nothing
/// when a newer version of the program wrote the database.
Done migrateEvents(SqliteDatabase& database);

}  // namespace jx
