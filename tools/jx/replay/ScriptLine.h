// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "tools/jx/Result.h"
#include "tools/jx/replay/ScriptCommand.h"

namespace jx {

/// Reads one line of a session script, without its line end. Any bytes are allowed; what is no
/// command is a failure that says why, for the person who wrote the line. Depends on nothing but
/// the line, and changes nothing.
Result<ScriptCommand> readScriptLine(std::string_view line);

}  // namespace jx
