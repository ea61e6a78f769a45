// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tools/jx/collector/validation/Diagnostics.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Validates the blocks common to all events: the context (device, lifecycle and application) and
/// the user. Checks that required fields are set and that every field has its type. The root of
/// `tree` must be an object.
void validateContext(const JsonTree& tree, Diagnostics& diagnostics);

}  // namespace jx
