// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/json/JXJsonObject.h"
#include "tools/jx/Result.h"
#include "tools/jx/replay/ScriptCommand.h"

namespace jx {

/// Creates the event of a script line whose "do" is "event". Uses only JXEventClass, so a new event
/// class requires no change here.
Result<ScriptCommand> readEventLine(const JXJsonObject& line);

}  // namespace jx
