// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonString.h"

#include <cstdint>
#include <cstring>

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

constexpr std::size_t kQuotes = 2;
constexpr std::size_t kMaxEscapeLength = 6;

// Returns the character after the backslash for a byte that must be escaped, 'u' for a numeric
// escape; 0 for any other byte.
char escapeOf(char byte) noexcept {
  switch (byte) {
    case '"':
    case '\\':
      return byte;
    case '\b':
      return 'b';
    case '\f':
      return 'f';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\t':
      return 't';
    default:
      return static_cast<unsigned char>(byte) < 0x20 ? 'u' : '\0';
  }
}

std::size_t escapedLength(std::string_view text) noexcept {
  std::size_t length = 0;
  for (const char byte : text) {
    const char escape = escapeOf(byte);
    length += escape == '\0' ? 1 : escape == 'u' ? kMaxEscapeLength : 2;
  }
  return length;
}

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
bool copyPlainWord(const char* from, std::size_t length, char* to) noexcept {
  std::uint64_t word = eachByte(' ');
  std::memcpy(&word, from, length);
  std::memcpy(to, &word, length);
  return isPlainWord(word);
}

// The same for any length. Overlapping words avoid a loop over the last bytes.
bool copyPlain(const char* from, std::size_t length, char* to) noexcept {
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

void appendEscaped(std::string_view text, JXStringBuilder& out) {
  if (!isUtf8(text)) return appendEscaped(withReplacementCharacters(text), out);
  constexpr char kDigits[] = "0123456789ABCDEF";
  out.append('"');
  for (const char byte : text) {
    const char escape = escapeOf(byte);
    if (escape == '\0') {
      out.append(byte);
      continue;
    }
    out.append('\\');
    out.append(escape);
    if (escape != 'u') continue;
    out.append(std::string_view("00"));
    out.append(kDigits[static_cast<unsigned char>(byte) >> 4]);
    out.append(kDigits[static_cast<unsigned char>(byte) & 0x0FU]);
  }
  out.append('"');
}

}  // namespace

std::size_t jsonStringLength(std::string_view text) {
  return kQuotes +
         (isUtf8(text) ? escapedLength(text) : escapedLength(withReplacementCharacters(text)));
}

char* writePlainJsonString(std::string_view text, char* to) noexcept {
  *to++ = '"';
  if (!copyPlain(text.data(), text.size(), to)) return nullptr;
  to += text.size();
  *to++ = '"';
  return to;
}

void appendJsonString(std::string_view text, JXStringBuilder& out) {
  if (const char* const end = writePlainJsonString(text, out.room(text.size() + kQuotes))) {
    out.extendTo(end);
  } else {
    appendEscaped(text, out);
  }
}

}  // namespace jx
