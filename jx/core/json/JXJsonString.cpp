// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonString.h"

#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

constexpr std::size_t kQuotes = 2;

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
    length += escape == '\0' ? 1 : escape == 'u' ? kMaxEscapedLength : 2;
  }
  return length;
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

void appendJsonString(std::string_view text, JXStringBuilder& out) {
  if (const char* const end = writePlainJsonString(text, out.room(text.size() + kQuotes))) {
    out.extendTo(end);
  } else {
    appendEscaped(text, out);
  }
}

}  // namespace jx
