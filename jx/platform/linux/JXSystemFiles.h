// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// Reads of the small files in which the system describes itself. Every function takes a whole
/// path; what cannot be read is absent or empty. None of them blocks: a FIFO or a device in the
/// place of a file is not read.

/// The first 64 KiB of a regular file; absent when it cannot be opened.
JXString readSystemFile(const std::string& path);

/// The first line of a file without control characters (a NUL at the end of a device tree text
/// included) and without blanks at both ends; absent when nothing is left.
JXString readSystemLine(const std::string& path);

/// Where a symbolic link points, as it is written; absent when `path` is no symbolic link.
JXString readSystemLink(const std::string& path);

/// Names in a folder without "." and "..", sorted; empty when it cannot be read.
std::vector<std::string> listSystemFolder(const std::string& path);

/// True when `path` leads to something, through links.
bool systemPathExists(const std::string& path);

/// `text` without blanks and control characters at both ends.
std::string_view trimBlanks(std::string_view text);

}  // namespace jx
