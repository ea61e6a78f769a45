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
// Below that many digits nobody can tell a float's or a double's remains from a precise amount.
constexpr std::size_t kFewestOfFloat = 10;
constexpr std::size_t kFewestOfDouble = 16;
constexpr std::size_t kMostOfDouble = 17;
// How short the number must have been before.
constexpr std::size_t kMostDigitsMeant = 11;

// Without the exponent, the point, the sign, and zeros at the ends.
std::string significantDigits(std::string_view number) {
  std::string digits;
  for (const char c : number.substr(0, number.find_first_of("eE"))) {
    if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) digits += c;
  }
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits;
}

// As a float and as a double know it; "%.Ng" drops zeros at the end.
std::string withDigits(double value, int digits) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*g", digits, value);
  return text.data();
}

}  // namespace

std::string lossOf(std::string_view number) {
  if (number.size() <= kFewestOfFloat || number.find('.') == std::string_view::npos) return {};
  const std::size_t digits = significantDigits(number).size();
  if (digits < kFewestOfFloat) return {};
  const double value = std::strtod(std::string(number).c_str(), nullptr);
  std::string meant;
  if (static_cast<double>(static_cast<float>(value)) == value) meant = withDigits(value, 7);
  if (meant.empty() && digits >= kFewestOfDouble && digits <= kMostOfDouble) {
    meant = withDigits(value, 15);
    if (significantDigits(meant).size() > kMostDigitsMeant) return {};
  }
  if (meant.empty()) return {};
  return std::string(number) + " has been through binary floating point; " + meant + " was meant";
}

bool fitsAnAmount(std::string_view number) {
  if (number.size() <= kAmountDigits && number.find_first_of("eE") == std::string_view::npos) {
    return true;
  }
  return significantDigits(number).size() <= kAmountDigits &&
         !JXDecimal::fromString(number).isNaN();
}

}  // namespace jx
