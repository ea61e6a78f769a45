// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXUtf8.h"

#include <cstdint>
#include <cstring>

namespace jx {
namespace {

struct Sequence {
  std::size_t length = 0;  // of the sequence or the maximal invalid subpart
  bool valid = false;
};

// The valid range of the second byte. It excludes overlong forms, surrogates and code points above
// U+10FFFF.
struct SecondByte {
  unsigned char first;
  unsigned char last;
};

std::size_t lengthFromLead(unsigned char lead) noexcept {
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

SecondByte secondByteAfter(unsigned char lead) noexcept {
  switch (lead) {
    case 0xE0:
      return {0xA0, 0xBF};
    case 0xED:
      return {0x80, 0x9F};
    case 0xF0:
      return {0x90, 0xBF};
    case 0xF4:
      return {0x80, 0x8F};
    default:
      return {0x80, 0xBF};
  }
}

Sequence sequenceAt(std::string_view bytes, std::size_t at) noexcept {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (byte(at) < 0x80) return {1, true};
  const std::size_t length = lengthFromLead(byte(at));
  if (length == 0) return {1, false};
  const SecondByte second = secondByteAfter(byte(at));
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned char first = i == 1 ? second.first : 0x80;
    const unsigned char last = i == 1 ? second.last : 0xBF;
    if (at + i >= bytes.size() || byte(at + i) < first || byte(at + i) > last) return {i, false};
  }
  return {length, true};
}

// Most strings are ASCII, so this checks eight bytes per step.
std::size_t asciiPrefix(std::string_view bytes, std::size_t at) noexcept {
  const std::size_t begin = at;
  std::uint64_t word;
  while (at + sizeof word <= bytes.size()) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if ((word & 0x8080808080808080u) != 0) break;
    at += sizeof word;
  }
  return at - begin;
}

}  // namespace

bool isUtf8(std::string_view bytes) noexcept { return utf8PrefixLength(bytes) == bytes.size(); }

std::size_t utf8PrefixLength(std::string_view bytes) noexcept {
  std::size_t at = 0;
  while (at < bytes.size()) {
    at += asciiPrefix(bytes, at);
    if (at == bytes.size()) break;
    const Sequence sequence = sequenceAt(bytes, at);
    if (!sequence.valid) return at;
    at += sequence.length;
  }
  return at;
}

std::string withReplacementCharacters(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + 8);
  std::size_t at = 0;
  while (at < bytes.size()) {
    const Sequence sequence = sequenceAt(bytes, at);
    if (sequence.valid) {
      text.append(bytes.substr(at, sequence.length));
    } else {
      text.append("\xEF\xBF\xBD");
    }
    at += sequence.length;
  }
  return text;
}

}  // namespace jx
