// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// A copy of environment variables, by name. The application may change its environment on one
/// thread while a thread of the library reads the copy.
using JXEnvironment = std::map<std::string, JXString, std::less<>>;

/// Returns the variables of this process that the library uses. Called on the application thread,
/// when the platform is created.
JXEnvironment copyProcessEnvironment();

/// Returns the value of `name`; null if it is not set or empty, which POSIX treats alike for these
/// variables.
JXString variable(const JXEnvironment& environment, std::string_view name);

}  // namespace jx
