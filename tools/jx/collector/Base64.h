// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace jx {

std::string toBase64(std::string_view bytes);

/// Absent when the text is no base64.
std::optional<std::string> fromBase64(std::string_view text);

}  // namespace jx
