// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/variables/JXLeadingNumber.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace jx {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view takeDigits(std::string_view& rest) {
  const auto* const end = std::find_if_not(rest.begin(), rest.end(), isDigit);
  const auto length = static_cast<std::size_t>(end - rest.begin());
  const std::string_view digits = rest.substr(0, length);
  rest.remove_prefix(length);
  return digits;
}

// The power of ten behind an "e"; 0 when what follows is no exponent.
int takeExponent(std::string_view rest) {
  constexpr int kLimit = 100'000;
  if (rest.empty() || (rest.front() != 'e' && rest.front() != 'E')) return 0;
  rest.remove_prefix(1);
  const bool negative = !rest.empty() && rest.front() == '-';
  if (negative || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
  int exponent = 0;
  for (const char digit : takeDigits(rest)) {
    exponent = std::min(exponent * 10 + (digit - '0'), kLimit);
  }
  return negative ? -exponent : exponent;
}

// The usual text: digits alone, few enough for a double to hold their number exactly.
std::optional<std::uint64_t> wholeNumber(std::string_view text) {
  constexpr std::size_t kExactDigits = 15;
  if (text.empty() || text.size() > kExactDigits) return std::nullopt;
  std::uint64_t number = 0;
  for (const char c : text) {
    if (!isDigit(c)) return std::nullopt;
    number = number * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return number;
}

}  // namespace

std::uint64_t truncatedLeadingNumber(std::string_view text) {
  if (const std::optional<std::uint64_t> number = wholeNumber(text)) return *number;
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
    text.remove_prefix(1);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::string digits(takeDigits(text));
  int exponent = 0;
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    const std::string_view fraction = takeDigits(text);
    digits.append(fraction);
    exponent -= static_cast<int>(std::min<std::size_t>(fraction.size(), 100'000));
  }
  if (digits.empty()) return 0;
  exponent += takeExponent(text);
  // Without a point there is nothing in the text that the process's locale could read differently.
  const double value = std::strtod((digits + "e" + std::to_string(exponent)).c_str(), nullptr);
  constexpr double kBeyond = 18446744073709551616.0;  // 2^64
  if (!(value < kBeyond)) return std::numeric_limits<std::uint64_t>::max();
  return static_cast<std::uint64_t>(value);
}

}  // namespace jx
