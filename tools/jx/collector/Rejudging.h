// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/Outcome.h"
#include "tools/jx/collector/SqliteDatabase.h"
#include "tools/jx/collector/judgement/Judgement.h"

namespace jx {

/// Judges all that is kept again when it was judged by other rules, or never.
Done judgeAgainWhereNeeded(SqliteDatabase& database);

/// Binds what a judgement says to the twelve parameters from `first` on: name, class, good, errors,
/// notes, session, video session, event timestamp, site, token, problem, line. The judgement must
/// stay alive until the statement is reset.
void bindJudgement(SqliteStatement& statement, int first, const Judgement& judgement);

}  // namespace jx
