// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/Result.h"
#include "tools/jx/collector/SqliteDatabase.h"
#include "tools/jx/collector/validation/ValidationResult.h"

namespace jx {

/// Validates all stored events again when the rules have changed, or when they were never
/// validated.
Done revalidateWhereNeeded(SqliteDatabase& database);

/// Binds a validation result to twelve parameters, starting at `first`: name, class, good, errors,
/// notes, session, video session, event timestamp, site, token, problem, line. `validation` must
/// stay alive until the statement is reset.
void bindValidationResult(SqliteStatement& statement, int first,
                          const ValidationResult& validation);

}  // namespace jx
