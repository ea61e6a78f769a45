// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXDecimal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "jx/core/json/JXDecimalText.h"

namespace jx {
namespace {

constexpr int kLimbDigits = 19;
constexpr int kMaxDigits = 2 * kLimbDigits;
constexpr std::uint64_t kLimb = 10'000'000'000'000'000'000u;
constexpr std::int64_t kMinExponent = -128;
constexpr std::int64_t kMaxExponent = 127;

std::string paddedLimb(std::uint64_t limb) {
  std::string digits = std::to_string(limb);
  return std::string(static_cast<std::size_t>(kLimbDigits) - digits.size(), '0') + digits;
}

// A coefficient of up to 38 digits, built digit by digit.
struct Coefficient {
  std::uint64_t high = 0;
  std::uint64_t low = 0;

  void append(char digit) noexcept {
    high = high * 10 + low / (kLimb / 10);
    low = low % (kLimb / 10) * 10 + static_cast<std::uint64_t>(digit - '0');
  }
  // Returns false when the sum has 39 digits; the coefficient is then 10^37, a tenth of the sum.
  bool increment() noexcept {
    if (++low < kLimb) return true;
    low = 0;
    if (++high < kLimb) return true;
    high = kLimb / 10;
    return false;
  }
  bool isZero() const noexcept { return high == 0 && low == 0; }
};

// The digits of a coefficient that is scaled to a smaller exponent, most significant first, with
// room for the carry of a sum.
using AlignedDigits =
    std::array<char, static_cast<std::size_t>(kMaxExponent - kMinExponent) + kMaxDigits + 1>;

AlignedDigits aligned(std::uint64_t high, std::uint64_t low, int shift) noexcept {
  AlignedDigits digits;
  digits.fill('0');
  auto digit = digits.rbegin() + shift;
  for (std::uint64_t limb : {low, high}) {
    for (int i = 0; i < kLimbDigits; ++i, limb /= 10)
      *digit++ = static_cast<char>('0' + limb % 10);
  }
  return digits;
}

// The decimal digits and the exponent of a `printf("%e")` result, independent of the locale's
// decimal point.
struct Scientific {
  std::string digits;
  int exponent = 0;
};

Scientific scientificOf(double magnitude, int fractionDigits) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*e", fractionDigits, magnitude);
  const std::string_view view(text.data());
  const std::size_t e = view.rfind('e');
  Scientific result;
  for (const char c : view.substr(0, e)) {
    if (c >= '0' && c <= '9') result.digits.push_back(c);
  }
  result.exponent = std::atoi(text.data() + e + 1);
  return result;
}

// Returns the next larger number with the same number of digits.
Scientific nextUp(Scientific number) {
  for (auto digit = number.digits.rbegin(); digit != number.digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return number;
    }
    *digit = '0';
  }
  number.digits.insert(0, "1");
  number.digits.pop_back();
  ++number.exponent;
  return number;
}

bool readsBackAs(const Scientific& number, double magnitude) {
  // Without a decimal point the string does not depend on the locale.
  const int exponent = number.exponent - static_cast<int>(number.digits.size()) + 1;
  const std::string text = number.digits + "e" + std::to_string(exponent);
  return std::strtod(text.c_str(), nullptr) == magnitude;
}

}  // namespace

JXDecimal::JXDecimal(bool negative, std::uint64_t magnitude) noexcept
    : high_(magnitude / kLimb), low_(magnitude % kLimb), negative_(negative) {}

JXDecimal JXDecimal::fromString(const JXString& text) noexcept {
  const std::optional<JXDecimalText> parts = JXDecimalText::parse(text.view());
  if (!parts) return nan();
  return fromDigits(parts->negative, parts->integerDigits, parts->fractionDigits, parts->exponent);
}

JXDecimal JXDecimal::fromDigits(bool negative, std::string_view integerDigits,
                                std::string_view fractionDigits, std::int64_t exponent) noexcept {
  const std::size_t total = integerDigits.size() + fractionDigits.size();
  const auto digitAt = [&](std::size_t i) {
    return i < integerDigits.size() ? integerDigits[i] : fractionDigits[i - integerDigits.size()];
  };
  std::size_t first = 0;
  while (first < total && digitAt(first) == '0')
    ++first;
  const bool isZero = first == total;
  // A zero keeps its scale, as far as it fits.
  if (isZero && total > 0) first = total - 1;

  // The exponent if the digit at position i is the last one kept.
  const auto exponentAt = [&](std::size_t i) {
    return exponent + static_cast<std::int64_t>(integerDigits.size()) -
           static_cast<std::int64_t>(i) - 1;
  };
  std::size_t kept = std::min(total, first + kMaxDigits);
  if (isZero) {
    JXDecimal zero;
    zero.negative_ = negative;
    zero.exponent_ =
        static_cast<std::int16_t>(std::clamp<std::int64_t>(exponentAt(total - 1), kMinExponent, 0));
    return zero;
  }
  // Digits below the smallest power of ten are rounded like those after the 38th.
  if (exponentAt(first) < kMinExponent - 1) return nan();
  while (kept > first && exponentAt(kept - 1) < kMinExponent)
    --kept;

  Coefficient coefficient;
  for (std::size_t i = first; i < kept; ++i)
    coefficient.append(digitAt(i));
  std::int64_t resultExponent = kept > 0 ? exponentAt(kept - 1) : exponent;
  if (kept == first) resultExponent = kMinExponent;
  if (kept < total && digitAt(kept) >= '5' && !coefficient.increment()) ++resultExponent;
  if (coefficient.isZero()) return nan();

  // An exponent that is too large may still fit as trailing zeros of the coefficient.
  while (resultExponent > kMaxExponent && coefficient.high < kLimb / 10) {
    coefficient.append('0');
    --resultExponent;
  }
  if (resultExponent > kMaxExponent) return nan();

  JXDecimal result;
  result.high_ = coefficient.high;
  result.low_ = coefficient.low;
  result.exponent_ = static_cast<std::int16_t>(resultExponent);
  result.negative_ = negative;
  return result;
}

JXDecimal JXDecimal::fromDouble(double value) noexcept {
  if (!std::isfinite(value)) return nan();
  const double magnitude = std::fabs(value);
  if (magnitude == 0) return JXDecimal();
  Scientific shortest;
  for (int fractionDigits = 0; fractionDigits <= 17; ++fractionDigits) {
    shortest = scientificOf(magnitude, fractionDigits);
    if (readsBackAs(shortest, magnitude)) break;
    // At a power of two the spacing of doubles changes: the nearest decimal of this length may lie
    // below and not convert back, while the next larger one does.
    const Scientific neighbour = nextUp(shortest);
    if (readsBackAs(neighbour, magnitude)) {
      shortest = neighbour;
      break;
    }
  }
  const std::string_view digits = shortest.digits;
  return fromDigits(value < 0, digits.substr(0, 1), digits.substr(1), shortest.exponent);
}

std::string JXDecimal::significantDigits() const {
  if (high_ == 0) return std::to_string(low_);
  return std::to_string(high_) + paddedLimb(low_);
}

std::string JXDecimal::toString() const {
  if (isNaN_) return "NaN";
  if (isShort()) {
    char text[kMaxShortLength];
    return std::string(writeShort(text));
  }
  return JXDecimalText::plain(negative_, significantDigits(), exponent_);
}

int JXDecimal::compare(const JXDecimal& a, const JXDecimal& b) noexcept {
  const int signOfA = a.isZero() ? 0 : a.negative_ ? -1 : 1;
  const int signOfB = b.isZero() ? 0 : b.negative_ ? -1 : 1;
  if (signOfA != signOfB) return signOfA < signOfB ? -1 : 1;
  const int exponent = std::min(a.exponent_, b.exponent_);
  const AlignedDigits x = aligned(a.high_, a.low_, a.exponent_ - exponent);
  const AlignedDigits y = aligned(b.high_, b.low_, b.exponent_ - exponent);
  if (x == y) return 0;
  return x < y ? -signOfA : signOfA;
}

bool operator==(const JXDecimal& a, const JXDecimal& b) noexcept {
  return !a.isNaN_ && !b.isNaN_ && JXDecimal::compare(a, b) == 0;
}

bool operator<(const JXDecimal& a, const JXDecimal& b) noexcept {
  return !a.isNaN_ && !b.isNaN_ && JXDecimal::compare(a, b) < 0;
}

bool operator<=(const JXDecimal& a, const JXDecimal& b) noexcept {
  return !a.isNaN_ && !b.isNaN_ && JXDecimal::compare(a, b) <= 0;
}

JXDecimal operator+(const JXDecimal& a, const JXDecimal& b) noexcept {
  if (a.isNaN_ || b.isNaN_) return JXDecimal::nan();
  const int exponent = std::min(a.exponent_, b.exponent_);
  AlignedDigits larger = aligned(a.high_, a.low_, a.exponent_ - exponent);
  AlignedDigits smaller = aligned(b.high_, b.low_, b.exponent_ - exponent);
  const bool isSwapped = larger < smaller;
  if (isSwapped) larger.swap(smaller);
  const bool subtracts = a.negative_ != b.negative_;
  // Opposite numbers add up to a positive zero.
  const bool isNegative = subtracts && larger == smaller ? false : (isSwapped ? b : a).negative_;
  int carry = 0;
  for (std::size_t i = larger.size(); i-- > 0;) {
    const int other = smaller[i] - '0' + carry;
    int digit = larger[i] - '0' + (subtracts ? -other : other);
    carry = digit < 0 || digit > 9 ? 1 : 0;
    if (carry != 0) digit += subtracts ? 10 : -10;
    larger[i] = static_cast<char>('0' + digit);
  }
  return JXDecimal::fromDigits(isNegative, {larger.data(), larger.size()}, {}, exponent);
}

std::ostream& operator<<(std::ostream& out, const JXDecimal& value) {
  return out << value.toString();
}

}  // namespace jx
