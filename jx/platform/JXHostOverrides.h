// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Values that the application sets in place of those of the system; see `makeSystemPlatform`.
struct JXHostOverrides {
  JXBundleInformation bundle;
  JXScreenBounds screen;
  JXString userAgent;
};

}  // namespace jx
