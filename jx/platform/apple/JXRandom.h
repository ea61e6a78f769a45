// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/platform/JXString.h"

namespace jx {

/// Foundation's random UUID: 36 characters, upper-case hexadecimal, hyphenated. Thread-safe.
JXString makeFoundationUUID();

/// 32 random bits of the system's generator. Thread-safe.
std::uint32_t drawSystemRandomBits();

}  // namespace jx
