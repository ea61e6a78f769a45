// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/LargeNumbers.h"

#include <algorithm>

namespace jx {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNumberCharacters = "+-.0123456789Ee";
// Every number of up to 308 digits without an exponent is within the range of a double.
constexpr std::size_t kSmallNumber = 300;

std::size_t digitsAt(std::string_view text, std::size_t at) {
  const std::size_t end = std::min(text.find_first_not_of(kDigits, at), text.size());
  return end - std::min(at, end);
}

// -?(0|[1-9][0-9]*)(.[0-9]+)?([eE][+-]?[0-9]+)?
bool isNumber(std::string_view text) {
  std::size_t at = text.substr(0, 1) == "-" ? 1 : 0;
  const std::size_t whole = digitsAt(text, at);
  if (whole == 0 || (whole > 1 && text[at] == '0')) return false;
  at += whole;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fraction = digitsAt(text, at + 1);
    if (fraction == 0) return false;
    at += 1 + fraction;
  }
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t exponent = digitsAt(text, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == text.size();
}

bool mayBeLarge(std::string_view number) {
  return number.size() > kSmallNumber || number.find_first_of("eE") != std::string_view::npos;
}

// Returns the index after the string that begins at `at`; the end of `text` when it is
// unterminated.
std::size_t endOfString(std::string_view text, std::size_t at) {
  for (++at; at < text.size() && text[at] != '"'; ++at) {
    if (text[at] == '\\') ++at;
  }
  return std::min(at + 1, text.size());
}

}  // namespace

TextWithoutLargeNumbers TextWithoutLargeNumbers::of(std::string_view text) {
  TextWithoutLargeNumbers result;
  result.text.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    std::size_t end = at + 1;
    if (c == '"') {
      end = endOfString(text, at);
    } else if (c == '-' || (c >= '0' && c <= '9')) {
      end = std::min(text.find_first_not_of(kNumberCharacters, at), text.size());
      const std::string_view number = text.substr(at, end - at);
      const bool isReplaced = mayBeLarge(number) && isNumber(number);
      result.replaced.push_back(isReplaced ? number : std::string_view());
      if (isReplaced) {
        result.text += '0';
        at = end;
        continue;
      }
    }
    result.text.append(text, at, end - at);
    at = end;
  }
  return result;
}

}  // namespace jx
