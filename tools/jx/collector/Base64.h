// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace jx {

std::string toBase64(std::string_view bytes);

/// Returns nullopt when the text is not valid, padded Base64.
std::optional<std::string> fromBase64(std::string_view text);

}  // namespace jx
