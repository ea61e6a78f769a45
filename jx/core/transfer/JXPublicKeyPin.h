// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// True for the Base64 text of 32 bytes, as a SHA-256 has: 43 digits and one "=".
bool isPublicKeyPin(std::string_view text);

}  // namespace jx
