// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/judgement/JsonTree.h"
#include "tools/jx/collector/judgement/Reasons.h"

namespace jx {

/// Holds the blocks that the library puts beside every event (context with device, lifecycle and
/// application, and the user) against what it always writes. `tree` is an object.
void judgeContext(const JsonTree& tree, Reasons& reasons);

}  // namespace jx
