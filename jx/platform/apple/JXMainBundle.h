// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXPlatform.h"

namespace jx {

/// What the main bundle states in its Info.plist, where `host` is absent. Thread-safe.
JXBundleInformation completedByMainBundle(const JXBundleInformation& host);

}  // namespace jx
