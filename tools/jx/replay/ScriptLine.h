// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/replay/ScriptCommand.h"

namespace jx {

/// Parses one line of a session script, without its line end. The line may contain any bytes.
/// Returns an error message for the author of the script when the line is not a command. A pure
/// function.
Result<ScriptCommand> readScriptLine(std::string_view line);

}  // namespace jx
