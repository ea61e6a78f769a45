// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// What the host states about itself, as `makeSystemPlatform` takes it.
struct JXHostOverrides {
  JXBundleInformation bundle;
  JXScreenBounds screen;
  JXString userAgent;
};

}  // namespace jx
