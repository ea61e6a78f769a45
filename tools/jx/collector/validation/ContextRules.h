// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/validation/Diagnostics.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Holds the blocks that the library puts beside every event (context with device, lifecycle and
/// application, and the user) against what it always writes. `tree` is an object.
void validateContext(const JsonTree& tree, Diagnostics& reasons);

}  // namespace jx
