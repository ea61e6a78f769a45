// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

namespace jx::catalogue {

/// The headers that name every class, field, mode and constant for C: their text by their path from
/// the source folder. Everything in them is read from the library's own tables, and from the
/// comments and constants of the headers in `sourceFolder`.
std::map<std::string, std::string> cHeaders(const std::string& sourceFolder);

}  // namespace jx::catalogue
