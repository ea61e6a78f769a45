// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx {

/// What a JSON number has lost on its way, in words; empty when nothing. A number that went through
/// binary floating point shows it: 139.12 becomes 139.12000000000001 as a double and
/// 139.1199951171875 as a float.
std::string lossOf(std::string_view number);

/// True when the library holds the number as an amount without rounding it: 38 digits at most.
bool fitsAnAmount(std::string_view number);

}  // namespace jx
