// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// Returns whether `string` is the Base64 form of 32 bytes, the size of a SHA-256 hash: 43 digits
/// and one "=".
bool isPublicKeyPin(std::string_view string);

}  // namespace jx
