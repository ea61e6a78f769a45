// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace jx::catalogue {

/// Lines of `///` of at most 100 columns.
std::string comment(const std::string& text);
/// An inline function of C that calls another one.
std::string function(const std::string& name, const std::vector<std::string>& parameters,
                     const std::string& calls, const std::vector<std::string>& arguments);
/// What stands before the declarations of a header; those in it are C's when `isC`.
std::string opening(const std::string& guard, const std::vector<std::string>& includes,
                    bool isC = true);
/// What stands behind them.
std::string closing();

}  // namespace jx::catalogue
