// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"

namespace jx {

/// Replaces the content of a file atomically: readers, and the file system after a crash, see
/// either the old file or the complete new one. The file has exactly the given mode when it is
/// created.
Done writeFileAtomically(const std::filesystem::path& path, std::string_view content, mode_t mode);

/// Returns the entire content of a file.
Result<std::string> readWholeFile(const std::filesystem::path& path);

}  // namespace jx
