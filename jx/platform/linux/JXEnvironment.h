// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// Environment variables by name, copied: a host that changes its environment on one thread cannot
/// disturb a thread of the library that reads it.
using JXEnvironment = std::map<std::string, JXString, std::less<>>;

/// The variables of this process that the library reads. Called when the platform is made, on the
/// host's thread.
JXEnvironment copyProcessEnvironment();

/// The value of `name`; absent when it is not set or empty, which POSIX treats alike for the
/// variables read here.
JXString variable(const JXEnvironment& environment, std::string_view name);

}  // namespace jx
