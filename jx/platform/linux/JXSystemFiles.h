// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// Functions that read small system files. Every function takes a complete path and returns null or
/// an empty result on an error. None of them blocks: FIFOs and devices are not read.

/// Returns the first 64 KiB of a regular file; null if it cannot be opened.
JXString readSystemFile(const std::string& path);

/// Returns the first line of a file without control characters (including the NUL at the end of a
/// device tree string) and without leading and trailing blanks; null if nothing is left.
JXString readSystemLine(const std::string& path);

/// Returns the target of a symbolic link, unresolved; null if `path` is not a symbolic link.
JXString readSystemLink(const std::string& path);

/// Returns the names in a folder without "." and "..", sorted; empty if it cannot be read.
std::vector<std::string> listSystemFolder(const std::string& path);

/// Returns true if `path` exists, following links.
bool systemPathExists(const std::string& path);

/// Returns `text` without leading and trailing blanks and control characters.
std::string_view trimBlanks(std::string_view text);

}  // namespace jx
