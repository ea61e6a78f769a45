// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/NumberLoss.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "jx/core/json/JXDecimal.h"

namespace jx {
namespace {

constexpr std::size_t kAmountDigits = 38;
// With fewer digits, a converted float or double cannot be distinguished from an exact amount.
constexpr std::size_t kFewestOfFloat = 10;
constexpr std::size_t kFewestOfDouble = 16;
constexpr std::size_t kMostOfDouble = 17;
// Maximum number of digits of the original value.
constexpr std::size_t kMaxOriginalDigits = 11;

// Returns the digits without exponent, decimal point, sign, and leading and trailing zeros.
std::string significantDigits(std::string_view number) {
  std::string digits;
  for (const char c : number.substr(0, number.find_first_of("eE"))) {
    if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) digits += c;
  }
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits;
}

// Formats with `digits` significant digits; "%.Ng" drops trailing zeros.
std::string withDigits(double value, int digits) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*g", digits, value);
  return text.data();
}

}  // namespace

std::string describeLoss(std::string_view number) {
  if (number.size() <= kFewestOfFloat || number.find('.') == std::string_view::npos) return {};
  const std::size_t digits = significantDigits(number).size();
  if (digits < kFewestOfFloat) return {};
  const double value = std::strtod(std::string(number).c_str(), nullptr);
  std::string original;
  if (static_cast<double>(static_cast<float>(value)) == value) original = withDigits(value, 7);
  if (original.empty() && digits >= kFewestOfDouble && digits <= kMostOfDouble) {
    original = withDigits(value, 15);
    if (significantDigits(original).size() > kMaxOriginalDigits) return {};
  }
  if (original.empty()) return {};
  return std::string(number) +
         " lost precision in binary floating point; the exact value is probably " + original;
}

bool fitsAmount(std::string_view number) {
  if (number.size() <= kAmountDigits && number.find_first_of("eE") == std::string_view::npos) {
    return true;
  }
  return significantDigits(number).size() <= kAmountDigits &&
         !JXDecimal::fromString(number).isNaN();
}

}  // namespace jx
