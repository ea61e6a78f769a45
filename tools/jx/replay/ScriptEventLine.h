// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/json/JXJsonObject.h"
#include "tools/jx/Result.h"
#include "tools/jx/replay/ScriptCommand.h"

namespace jx {

/// Makes the event of a script line that does "event". Knows the event classes by what
/// JXEventClass tells about them only, so a class that is added needs no change here.
Result<ScriptCommand> readEventLine(const JXJsonObject& line);

}  // namespace jx
