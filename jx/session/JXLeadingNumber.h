// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace jx {

/// Returns the number at the start of the string, parsed as a floating-point number and truncated.
/// Returns 0 if there is no number or it is negative, and the largest value if it exceeds 64 bits.
std::uint64_t truncatedLeadingNumber(std::string_view string);

}  // namespace jx
