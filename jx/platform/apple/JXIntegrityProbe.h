// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx {

/// True when a file stands in the system that no sound device has: a shell, a remote login, a
/// package manager, a loader of foreign code. `root` stands before each path. A probe for honest
/// statistics; it holds up nobody who hides the files. Thread-safe.
bool isSystemModified(const std::string& root);

}  // namespace jx
