// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"

namespace jx {

/// Replaces the file by `content` so that a reader, and a crash, see either the old file or the
/// whole new one. The file has exactly the given mode from the moment it exists.
Done writeFileAtomically(const std::filesystem::path& path, std::string_view content, mode_t mode);

/// The whole content of a file.
Result<std::string> readWholeFile(const std::filesystem::path& path);

}  // namespace jx
