// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// Returns the folder for the library's files: "jxserverside" in $XDG_STATE_HOME, else in
/// $HOME/.local/state, with one subfolder per application unless `bundleIdentifier` is null or
/// empty. Null if neither variable contains an absolute path of at most 3,072 characters. In the
/// identifier, characters other than letters, digits, '.', '-' and '_', and a leading '.', are
/// replaced by '_'; it is truncated to 128 characters.
JXString storageFolder(const JXEnvironment& environment, const JXString& bundleIdentifier);

}  // namespace jx
