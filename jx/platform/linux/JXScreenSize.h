// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Returns the size of the main screen: the size that the application configured, if both sides are
/// finite and at least one point; else the first mode of the first connected display that the
/// kernel lists; else the mode, or the size, of the first frame buffer; else 0 by 0. `root` is the
/// prefix of every path.
JXScreenBounds screenSize(const JXScreenBounds& configured, const std::string& root);

}  // namespace jx
