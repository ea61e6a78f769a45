// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::catalogue {

/// The header with the constants that are no fields: names of notifications and predefined
/// variables, and ready-made texts of payment methods and purchase statuses. A constant is called
/// as in C++ without its first letter, since a macro of the same name would break that one. Throws
/// when a header of `sourceFolder` holds none.
std::string namesHeader(const std::string& sourceFolder);

}  // namespace jx::catalogue
