// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace jx {

/// The number at the start of the text read as binary floating point, its fraction dropped: 0 when
/// there is none or when it is negative, the largest value when it lies beyond 64 bits.
std::uint64_t truncatedLeadingNumber(std::string_view text);

}  // namespace jx
