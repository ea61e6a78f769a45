// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXDecimalText.h"

#include <algorithm>

#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

bool takeSign(std::string_view& rest) noexcept {
  const bool negative = !rest.empty() && rest.front() == '-';
  if (negative || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
  return negative;
}

}  // namespace

std::optional<JXDecimalText> JXDecimalText::parse(std::string_view text) noexcept {
  constexpr std::int64_t kExponentLimit = 1'000'000;
  JXDecimalText parts;
  parts.negative = takeSign(text);
  parts.integerDigits = takeDigits(text);
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    parts.fractionDigits = takeDigits(text);
  }
  if (parts.integerDigits.empty() && parts.fractionDigits.empty()) return std::nullopt;
  if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
    text.remove_prefix(1);
    const bool negative = takeSign(text);
    const std::string_view digits = takeDigits(text);
    if (digits.empty()) return std::nullopt;
    for (const char digit : digits) {
      parts.exponent = std::min(parts.exponent * 10 + (digit - '0'), kExponentLimit);
    }
    if (negative) parts.exponent = -parts.exponent;
  }
  if (!text.empty()) return std::nullopt;
  return parts;
}

std::optional<std::string> JXDecimalText::toPlain() const {
  const std::int64_t scale = exponent - static_cast<std::int64_t>(fractionDigits.size());
  const std::size_t given = integerDigits.size() + fractionDigits.size();
  const std::size_t shift = static_cast<std::size_t>(exponent < 0 ? -exponent : exponent);
  if (exponent != 0 && given + shift > kMaxPlainDigits) return std::nullopt;
  std::string digits;
  digits.reserve(given);
  digits.append(integerDigits).append(fractionDigits);
  return plain(negative, digits, scale);
}

std::string JXDecimalText::plain(bool negative, std::string_view digits, std::int64_t exponent) {
  const std::size_t scale = exponent < 0 ? static_cast<std::size_t>(-exponent) : 0;
  while (digits.size() > scale + 1 && digits.front() == '0')
    digits.remove_prefix(1);
  std::string text;
  if (exponent >= 0) {
    text.append(digits);
    if (digits != "0") text.append(static_cast<std::size_t>(exponent), '0');
  } else {
    if (digits.size() <= scale) {
      text.append("0.").append(scale - digits.size(), '0').append(digits);
    } else {
      text.append(digits.substr(0, digits.size() - scale)).append(1, '.');
      text.append(digits.substr(digits.size() - scale));
    }
  }
  if (negative) text.insert(0, 1, '-');
  return text;
}

}  // namespace jx
