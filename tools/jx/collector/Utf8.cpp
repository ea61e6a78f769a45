// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/Utf8.h"

#include <cstddef>

namespace jx {
namespace {

bool isWithin(unsigned char byte, unsigned low, unsigned high) {
  return byte >= low && byte <= high;
}

// The length of the well-formed character at the start of `bytes`, which is not empty; 0 when
// there is none.
std::size_t characterLength(std::string_view bytes) {
  const auto at = [bytes](std::size_t i) {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : static_cast<unsigned char>(0);
  };
  const unsigned char first = at(0);
  if (first < 0x80) return 1;
  std::size_t length = 0;
  // The second byte's range rules out overlong forms, surrogates and what lies beyond U+10FFFF.
  unsigned low = 0x80;
  unsigned high = 0xBF;
  if (isWithin(first, 0xC2, 0xDF)) {
    length = 2;
  } else if (isWithin(first, 0xE0, 0xEF)) {
    length = 3;
    if (first == 0xE0) low = 0xA0;
    if (first == 0xED) high = 0x9F;
  } else if (isWithin(first, 0xF0, 0xF4)) {
    length = 4;
    if (first == 0xF0) low = 0x90;
    if (first == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (!isWithin(at(1), low, high)) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!isWithin(at(i), 0x80, 0xBF)) return 0;
  }
  return length;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = characterLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string toUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = characterLength(bytes);
    text += length == 0 ? std::string_view("\xEF\xBF\xBD") : bytes.substr(0, length);
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
  return text;
}

}  // namespace jx
