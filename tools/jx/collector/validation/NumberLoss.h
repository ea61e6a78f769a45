// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx {

/// Returns a message when a JSON number was converted through binary floating point and lost
/// precision; empty otherwise. Such a conversion turns 139.12 into 139.12000000000001 (double) or
/// 139.1199951171875 (float).
std::string describeLoss(std::string_view number);

/// True when the library can represent the number as an amount without rounding: at most 38 digits.
bool fitsAmount(std::string_view number);

}  // namespace jx
