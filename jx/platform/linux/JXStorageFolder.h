// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// The folder for the library's files: "jxserverside" in $XDG_STATE_HOME, else in
/// $HOME/.local/state, and below it one folder per application when `bundleIdentifier` holds text.
/// Absent when neither variable holds an absolute path of at most 3,072 characters. Characters of
/// the identifier other than letters, digits, '.', '-' and '_' become '_', and so does a '.' at its
/// start; it is cut at 128.
JXString storageFolder(const JXEnvironment& environment, const JXString& bundleIdentifier);

}  // namespace jx
