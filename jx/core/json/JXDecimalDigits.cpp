// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The part of JXDecimal that each event uses, in its own file, because it is compiled for speed.

#include "jx/core/json/JXDecimal.h"

namespace jx {

std::string_view JXDecimal::writeShort(char (&text)[kMaxShortLength]) const noexcept {
  char* const end = text + kMaxShortLength;
  char* at = end;
  std::uint64_t rest = low_;
  int fraction = -exponent_;
  if (fraction != 0) {
    for (; fraction != 0; --fraction, rest /= 10)
      *--at = static_cast<char>('0' + rest % 10);
    *--at = '.';
  }
  do {
    *--at = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  if (negative_) *--at = '-';
  return {at, static_cast<std::size_t>(end - at)};
}

}  // namespace jx
