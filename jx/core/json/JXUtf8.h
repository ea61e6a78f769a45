// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jx {

/// True when the bytes are UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes) noexcept;

/// How many bytes there are before the first that is not UTF-8; all when every one is.
std::size_t utf8PrefixLength(std::string_view bytes) noexcept;

/// The text with each maximal part that is not UTF-8 replaced by U+FFFD.
std::string withReplacementCharacters(std::string_view bytes);

}  // namespace jx
