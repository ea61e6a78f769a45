// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace jx {

/// Returns the name of the text encoding with this number in the system's list; "UTF-8" for unknown
/// numbers.
std::string_view nameOfTextEncoding(std::uint32_t number);

}  // namespace jx
