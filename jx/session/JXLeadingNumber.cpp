// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXLeadingNumber.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

// Returns the exponent after an "e"; 0 if no exponent follows.
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

// Fast path for the usual string: only digits, few enough for a double to be exact.
std::optional<std::uint64_t> wholeNumber(std::string_view string) {
  constexpr std::size_t kExactDigits = 15;
  if (string.empty() || string.size() > kExactDigits) return std::nullopt;
  std::uint64_t number = 0;
  for (const char c : string) {
    if (!isDigit(c)) return std::nullopt;
    number = number * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return number;
}

}  // namespace

std::uint64_t truncatedLeadingNumber(std::string_view string) {
  if (const std::optional<std::uint64_t> number = wholeNumber(string)) return *number;
  while (!string.empty() && (string.front() == ' ' || string.front() == '\t'))
    string.remove_prefix(1);
  if (!string.empty() && string.front() == '+') string.remove_prefix(1);
  std::string digits(takeDigits(string));
  int exponent = 0;
  if (!string.empty() && string.front() == '.') {
    string.remove_prefix(1);
    const std::string_view fraction = takeDigits(string);
    digits.append(fraction);
    exponent -= static_cast<int>(std::min<std::size_t>(fraction.size(), 100'000));
  }
  if (digits.empty()) return 0;
  exponent += takeExponent(string);
  // Without a decimal point the result does not depend on the locale of the process.
  const double value = std::strtod((digits + "e" + std::to_string(exponent)).c_str(), nullptr);
  constexpr double kRange = 18446744073709551616.0;  // 2^64
  if (!(value < kRange)) return std::numeric_limits<std::uint64_t>::max();
  return static_cast<std::uint64_t>(value);
}

}  // namespace jx
