// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/events/JXEventClass.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// Returns a one-line summary of an event: "3 items, 139.12 GBP". Empty when the event has nothing
/// to show but its name, or when `type` is null. The root of `tree` must be an object.
std::string summaryLineOf(const JsonTree& tree, const JXEventClass* type);

}  // namespace jx
