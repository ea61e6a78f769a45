// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "jx/platform/JXStringBuilder.h"

namespace jx {

namespace detail {

constexpr std::uint64_t eachByte(std::uint8_t byte) noexcept { return 0x0101010101010101U * byte; }

// Returns true when one of the eight bytes is zero.
constexpr bool hasZero(std::uint64_t word) noexcept {
  return ((word - eachByte(1)) & ~word & eachByte(0x80)) != 0;
}

constexpr bool isPlainWord(std::uint64_t word) noexcept {
  const bool hasHighOrControl = ((word | ((word - eachByte(0x20)) & ~word)) & eachByte(0x80)) != 0;
  return !hasHighOrControl && !hasZero(word ^ eachByte('"')) && !hasZero(word ^ eachByte('\\'));
}

// Copies a string of up to eight bytes. Returns false unless all bytes are ASCII and need no
// escape.
inline bool copyPlainWord(const char* from, std::size_t length, char* to) noexcept {
  std::uint64_t word = eachByte(' ');
  std::memcpy(&word, from, length);
  std::memcpy(to, &word, length);
  return isPlainWord(word);
}

// The same for any length. Overlapping words avoid a loop over the last bytes.
inline bool copyPlain(const char* from, std::size_t length, char* to) noexcept {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  constexpr std::size_t kHalf = kWord / 2;
  if (length >= kWord) {
    const std::size_t last = length - kWord;
    for (std::size_t at = 0; at < last; at += kWord) {
      if (!copyPlainWord(from + at, kWord, to + at)) return false;
    }
    return copyPlainWord(from + last, kWord, to + last);
  }
  if (length >= kHalf) {
    const std::size_t last = length - kHalf;
    return copyPlainWord(from, kHalf, to) && copyPlainWord(from + last, kHalf, to + last);
  }
  for (std::size_t at = 0; at < length; ++at) {
    if (!copyPlainWord(from + at, 1, to + at)) return false;
  }
  return true;
}

}  // namespace detail

// Serialise a string as a JSON string: in quotes, with special characters escaped, and with the
// replacement character for each part that is not UTF-8.

/// Returns the length of the JSON string in bytes, quotes included.
std::size_t jsonStringLength(std::string_view text);
/// Returns an upper bound of the length without reading the string: a byte becomes at most six.
constexpr std::size_t maxJsonStringLength(std::string_view text) { return 2 + 6 * text.size(); }
/// Writes the JSON string to `to`, which has room for the string and its quotes, and returns its
/// end. Returns null if the string needs an escape or is not ASCII; the bytes are undefined then.
inline char* writePlainJsonString(std::string_view text, char* to) noexcept {
  *to++ = '"';
  if (!detail::copyPlain(text.data(), text.size(), to)) return nullptr;
  to += text.size();
  *to++ = '"';
  return to;
}
/// Appends the JSON string to `out`.
void appendJsonString(std::string_view text, JXStringBuilder& out);

}  // namespace jx
