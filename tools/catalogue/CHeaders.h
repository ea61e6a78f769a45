// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

namespace jx::catalogue {

/// Generates the C headers of all classes, fields, modes and constants. Returns their contents by
/// path, relative to the source folder. The contents are read from the field tables of the library,
/// and from the comments and constants of the headers in `sourceFolder`.
std::map<std::string, std::string> cHeaders(const std::string& sourceFolder);

}  // namespace jx::catalogue
