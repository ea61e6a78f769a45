// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/events/JXEventClass.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {

/// What matters about an event in one line: "3 items, 139.12 GBP". Empty when it says nothing
/// beside its name. `tree` is an object; `type` may be null.
std::string lineOf(const JsonTree& tree, const JXEventClass* type);

}  // namespace jx
