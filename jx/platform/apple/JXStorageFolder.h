// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"

namespace jx {

/// Returns "jxserverside" in the application's caches folder, the only folder on tvOS that keeps
/// files between launches. The system may empty it while the application is not running, so
/// permanent values are stored in the user defaults. Null if the system has no such folder.
/// Thread-safe.
JXString cachesStorageFolder();

}  // namespace jx
