// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx {

/// Returns true if a file exists that an unmodified device does not have: a shell, a remote login,
/// a package manager, a loader of foreign code. `root` is the prefix of each path. For statistics
/// only: hidden files are not detected. Thread-safe.
bool isSystemModified(const std::string& root);

}  // namespace jx
