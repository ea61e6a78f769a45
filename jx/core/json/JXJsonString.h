// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>

#include "jx/platform/JXStringBuilder.h"

namespace jx {

// Serialise a string as a JSON string: in quotes, with special characters escaped, and with the
// replacement character for each part that is not UTF-8.

/// Returns the length of the JSON string in bytes, quotes included.
std::size_t jsonStringLength(std::string_view text);
/// Returns an upper bound of the length without reading the string: a byte becomes at most six.
constexpr std::size_t maxJsonStringLength(std::string_view text) { return 2 + 6 * text.size(); }
/// Writes the JSON string to `to`, which has room for the string and its quotes, and returns its
/// end. Returns null if the string needs an escape or is not ASCII; the bytes are undefined then.
char* writePlainJsonString(std::string_view text, char* to) noexcept;
/// Appends the JSON string to `out`.
void appendJsonString(std::string_view text, JXStringBuilder& out);

}  // namespace jx
