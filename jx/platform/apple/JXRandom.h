// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/platform/JXString.h"

namespace jx {

/// Returns a random UUID of Foundation: 36 characters, upper-case hexadecimal, hyphenated.
/// Thread-safe.
JXString makeFoundationUUID();

/// Returns 32 random bits from the system's generator. Thread-safe.
std::uint32_t drawSystemRandomBits();

}  // namespace jx
