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

// Sixteen bytes that are compared at once.
using Bytes = signed char __attribute__((vector_size(16)));
using Words = std::uint64_t __attribute__((vector_size(16)));

// Returns the bytes that are no ASCII characters, or that need an escape, as bits. Control
// characters and bytes with the highest bit are less than a space.
inline Words specialBytes(Bytes bytes) noexcept {
  return reinterpret_cast<Words>((' ' > bytes) | (bytes == '"') | (bytes == '\\'));
}

inline bool isZero(Words words) noexcept { return (words[0] | words[1]) == 0; }

// Copies a word, and returns it.
template <typename Word>
Word copyWord(const char* from, char* to) noexcept {
  Word word;
  std::memcpy(&word, from, sizeof word);
  std::memcpy(to, &word, sizeof word);
  return word;
}

// Copies up to 16 bytes, and returns them, filled with zeros (the digit). Overlapping words avoid a
// loop over the last bytes.
inline Bytes copyShort(const char* from, std::size_t length, char* to) noexcept {
  constexpr std::uint64_t kZeros = 0x3030303030303030;
  Words words{kZeros, kZeros};
  if (length >= sizeof(std::uint64_t)) {
    const std::size_t last = length - sizeof(std::uint64_t);
    words[0] = copyWord<std::uint64_t>(from, to);
    words[1] = copyWord<std::uint64_t>(from + last, to + last);
  } else if (length >= sizeof(std::uint32_t)) {
    const std::size_t last = length - sizeof(std::uint32_t);
    const std::uint64_t first = copyWord<std::uint32_t>(from, to);
    words[0] = first | std::uint64_t{copyWord<std::uint32_t>(from + last, to + last)} << 32U;
  } else if (length != 0) {
    Bytes bytes = reinterpret_cast<Bytes>(words);
    bytes[0] = copyWord<signed char>(from, to);
    bytes[1] = copyWord<signed char>(from + length / 2, to + length / 2);
    bytes[2] = copyWord<signed char>(from + length - 1, to + length - 1);
    return bytes;
  }
  return reinterpret_cast<Bytes>(words);
}

// Copies a string. Returns false unless all bytes are ASCII and need no escape.
inline bool copyPlain(const char* from, std::size_t length, char* to) noexcept {
  Words special{};
  if (length <= sizeof(Bytes)) {
    special = specialBytes(copyShort(from, length, to));
  } else {
    const std::size_t last = length - sizeof(Bytes);
    for (std::size_t at = 0; at < last; at += sizeof(Bytes))
      special |= specialBytes(copyWord<Bytes>(from + at, to + at));
    special |= specialBytes(copyWord<Bytes>(from + last, to + last));
  }
  return isZero(special);
}

}  // namespace detail

// Serialise a string as a JSON string: in quotes, with special characters escaped, and with the
// replacement character for each part that is not UTF-8.

/// Returns the length of the JSON string in bytes, quotes included.
std::size_t jsonStringLength(std::string_view text);
/// Returns an upper bound of the length without reading the string: a byte becomes at most six.
inline constexpr std::size_t kMaxEscapedLength = 6;
constexpr std::size_t maxJsonStringLength(std::string_view text) {
  return 2 + kMaxEscapedLength * text.size();
}
/// Writes the JSON string to `to`, which has room for the string and its quotes, and returns its
/// end. Returns null if the string needs an escape or is not ASCII; the bytes are undefined then.
inline char* writePlainJsonString(std::string_view text, char* to) noexcept {
  *to++ = '"';
  if (!detail::copyPlain(text.data(), text.size(), to)) return nullptr;
  to += text.size();
  *to++ = '"';
  return to;
}
/// Copies a string of up to 16 bytes to `to`. Returns whether it consists of digits, or is empty.
inline bool copyDigits(std::string_view text, char* to) noexcept {
  const detail::Bytes bytes = detail::copyShort(text.data(), text.size(), to);
  return detail::isZero(reinterpret_cast<detail::Words>((bytes < '0') | (bytes > '9')));
}
inline constexpr std::size_t kMaxCopiedDigits = sizeof(detail::Bytes);
/// Appends the JSON string to `out`.
void appendJsonString(std::string_view text, JXStringBuilder& out);

}  // namespace jx
