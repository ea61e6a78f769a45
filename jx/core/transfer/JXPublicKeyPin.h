// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jx {

/// Returns whether `string` is the Base64 form of 32 bytes, the size of a SHA-256 hash: 43 digits
/// and one "=".
bool isPublicKeyPin(std::string_view string);

/// Returns the pins in libcurl's syntax. When no pin is valid, returns one that matches no key, so
/// that a typo in the configuration does not disable pinning.
std::string joinedPins(const std::vector<std::string>& pins);

}  // namespace jx
