// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// Returns true when the bytes are valid UTF-8: no overlong form, no surrogate, nothing above
/// U+10FFFF.
bool isUtf8(std::string_view bytes) noexcept;

/// Returns the number of bytes before the first invalid sequence; all bytes if there is none.
std::size_t utf8PrefixLength(std::string_view bytes) noexcept;

/// Returns the string with each maximal invalid subpart replaced by U+FFFD.
std::string withReplacementCharacters(std::string_view bytes);

}  // namespace jx
