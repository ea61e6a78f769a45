// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/Result.h"
#include "tools/jx/collector/SqliteDatabase.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {

/// Judges all that is kept again when it was judged by other rules, or never.
Done revalidateWhereNeeded(SqliteDatabase& database);

/// Binds what a validation says to the twelve parameters from `first` on: name, class, good,
/// errors, notes, session, video session, event timestamp, site, token, problem, line. The
/// validation must stay alive until the statement is reset.
void bindValidationResult(SqliteStatement& statement, int first,
                          const ValidationResult& validation);

}  // namespace jx
