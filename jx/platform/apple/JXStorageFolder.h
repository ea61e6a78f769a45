// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"

namespace jx {

/// "jxserverside" in the application's folder for caches, the one folder in which tvOS lets an
/// application keep files between launches. The system may empty it while the application does not
/// run, so what must stay is kept in the user defaults. Absent when the system names no such
/// folder. Thread-safe.
JXString cachesStorageFolder();

}  // namespace jx
