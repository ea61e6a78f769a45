// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

// ASCII characters. The functions of <cctype> depend on the locale of the process, which belongs to
// the application.
constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isUpper(char c) noexcept { return c >= 'A' && c <= 'Z'; }
constexpr bool isAlpha(char c) noexcept { return isUpper(c) || (c >= 'a' && c <= 'z'); }

/// Removes the digits at the front of `rest` and returns them.
inline std::string_view takeDigits(std::string_view& rest) noexcept {
  std::size_t length = 0;
  while (length < rest.size() && isDigit(rest[length]))
    ++length;
  const std::string_view digits(rest.data(), length);
  rest.remove_prefix(length);
  return digits;
}

}  // namespace jx
