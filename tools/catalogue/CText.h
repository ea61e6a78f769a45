// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace jx::catalogue {

/// Formats a comment as lines of `///` with at most 100 columns.
std::string comment(const std::string& text);
/// Formats an inline C function that calls another function.
std::string function(const std::string& name, const std::vector<std::string>& parameters,
                     const std::string& calls, const std::vector<std::string>& arguments);
/// Returns the lines before the declarations of a header, with C linkage if `isC`.
std::string opening(const std::string& guard, const std::vector<std::string>& includes,
                    bool isC = true);
/// Returns the lines after the declarations of a header with C linkage.
std::string closing();

}  // namespace jx::catalogue
