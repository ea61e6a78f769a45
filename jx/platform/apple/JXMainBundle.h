// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// Returns `overrides`, with values of the main bundle's Info.plist in place of null. Thread-safe.
JXBundleInformation completedByMainBundle(const JXBundleInformation& overrides);

}  // namespace jx
