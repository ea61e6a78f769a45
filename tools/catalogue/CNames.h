// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::catalogue {

/// Generates the header of the constants that are not fields: names of notifications and predefined
/// variables, and predefined strings of payment methods and purchase statuses. The C name of a
/// constant is its C++ name without the first letter, because a macro of the same name would
/// replace the C++ constant. Throws if a header of `sourceFolder` contains no such constant.
std::string namesHeader(const std::string& sourceFolder);

}  // namespace jx::catalogue
