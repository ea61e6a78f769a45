// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

namespace detail {
/// True for integer types of up to 64 bits that represent numbers; false for `bool` and character
/// types.
template <typename T>
inline constexpr bool isNumberInteger = std::is_integral_v<T> &&
                                        sizeof(T) <= sizeof(std::uint64_t) &&
                                        !std::is_same_v<T, bool> && !std::is_same_v<T, char> &&
                                        !std::is_same_v<T, wchar_t> &&
                                        !std::is_same_v<T, char16_t> &&
                                        !std::is_same_v<T, char32_t>;
/// True for arithmetic types with values that an `Integer` cannot represent: floating point, wider
/// integers, and an unsigned integer of the same width as a signed `Integer`.
template <typename T, typename Integer>
inline constexpr bool isLossyAs = std::is_floating_point_v<T> ||
                                  (std::is_integral_v<T> &&
                                   (sizeof(T) > sizeof(Integer) ||
                                    (sizeof(T) == sizeof(Integer) &&
                                     std::is_signed_v<T> != std::is_signed_v<Integer>)));
}  // namespace detail

/// An exact decimal number: up to 38 significant digits and a power of ten from -128 to 127.
///
/// Used for amounts and counts, so that 0.1 stays 0.1. Keeps the scale: "12.50" prints as 12.50.
/// More than 38 significant digits are rounded half away from zero. A magnitude that is out of
/// range and a string that is not a number result in NaN. NaN is omitted wherever it would be
/// written. A value type; copies are cheap and never allocate.
class JX_API JXDecimal {
 public:
  /// Creates zero.
  constexpr JXDecimal() noexcept = default;

  /// Creates the exact value of an integer. `bool` and characters do not compile.
  template <typename Integer, typename = std::enable_if_t<detail::isNumberInteger<Integer>>>
  JXDecimal(Integer value) noexcept
      : JXDecimal(value < 0, value < 0 ? 0 - static_cast<std::uint64_t>(value)
                                       : static_cast<std::uint64_t>(value)) {}

  /// Deleted, because binary floating point is not exact: use `fromDouble` or `fromString`.
  template <typename Floating, typename = std::enable_if_t<std::is_floating_point_v<Floating>>,
            typename = void>
  JXDecimal(Floating) = delete;

  /// Parses a decimal string: an optional sign, digits with an optional decimal point, an optional
  /// exponent ("-12.50", "+3", ".5", "1e3"). Returns NaN for any other string and for null.
  static JXDecimal fromString(const JXString& text) noexcept;
  /// Returns the shortest decimal that converts back to the same double. Returns NaN for
  /// infinities, NaN and values out of range.
  static JXDecimal fromDouble(double value) noexcept;
  /// Returns NaN (not a number): equal to no value and never written.
  static constexpr JXDecimal nan() noexcept {
    JXDecimal result;
    result.isNaN_ = true;
    return result;
  }

  /// Returns true for NaN.
  constexpr bool isNaN() const noexcept { return isNaN_; }

  /// Returns plain digits without an exponent ("-12.50", "100000"), or "NaN".
  std::string toString() const;

  /// Compares values regardless of scale: 12.50 equals 12.5. NaN equals no value, not even NaN.
  friend JX_API bool operator==(const JXDecimal& a, const JXDecimal& b) noexcept;
  /// Returns the opposite of ==: NaN differs from every value.
  friend bool operator!=(const JXDecimal& a, const JXDecimal& b) noexcept { return !(a == b); }
  /// @name Order of values, regardless of scale
  /// NaN is unordered: every comparison with it returns false.
  /// @{

  /// Returns true if `a` is less than `b`.
  friend JX_API bool operator<(const JXDecimal& a, const JXDecimal& b) noexcept;
  /// Returns true if `a` is less than or equal to `b`.
  friend JX_API bool operator<=(const JXDecimal& a, const JXDecimal& b) noexcept;
  /// Returns true if `a` is greater than `b`.
  friend bool operator>(const JXDecimal& a, const JXDecimal& b) noexcept { return b < a; }
  /// Returns true if `a` is greater than or equal to `b`.
  friend bool operator>=(const JXDecimal& a, const JXDecimal& b) noexcept { return b <= a; }
  /// @}

  /// Returns the exact sum with the larger of both scales: 12.5 + 0.50 is 13.00. A sum of more than
  /// 38 significant digits is rounded half away from zero; one that is out of range is NaN. Returns
  /// NaN if an operand is NaN.
  friend JX_API JXDecimal operator+(const JXDecimal& a, const JXDecimal& b) noexcept;
  /// Adds `other`, as `+` does.
  JXDecimal& operator+=(const JXDecimal& other) noexcept { return *this = *this + other; }
  /// Returns the number with the opposite sign; NaN for NaN.
  constexpr JXDecimal operator-() const noexcept {
    JXDecimal result = *this;
    if (!isNaN_) result.negative_ = !negative_;
    return result;
  }

 private:
  friend class JXJsonTextSink;

  JXDecimal(bool negative, std::uint64_t magnitude) noexcept;
  bool isZero() const noexcept { return high_ == 0 && low_ == 0; }
  static int compare(const JXDecimal& a, const JXDecimal& b) noexcept;
  static JXDecimal fromDigits(bool negative, std::string_view integerDigits,
                              std::string_view fractionDigits, std::int64_t exponent) noexcept;
  std::string significantDigits() const;

  // Common numbers are written without an allocation: up to 19 digits, up to 19 of them after the
  // decimal point.
  static constexpr int kMaxShortDigits = 19;
  static constexpr std::size_t kMaxShortLength = 1 + 1 + 1 + kMaxShortDigits + 1;
  bool isShort() const noexcept {
    return high_ == 0 && exponent_ <= 0 && exponent_ >= -kMaxShortDigits;
  }
  // Returns the digits, which are in `text`, as `toString` does. Requires `isShort()`.
  std::string_view writeShort(char (&text)[kMaxShortLength]) const noexcept;

  // Value = (high_ * 10^19 + low_) * 10^exponent_, both halves below 10^19: 38 digits in total.
  std::uint64_t high_ = 0;
  std::uint64_t low_ = 0;
  std::int16_t exponent_ = 0;
  bool negative_ = false;
  bool isNaN_ = false;
};

/// Writes the result of `toString`, for test messages and logs.
JX_API std::ostream& operator<<(std::ostream& out, const JXDecimal& value);

/// Literals of exact decimals, found in namespace `jx` and by `using namespace jx::literals`.
inline namespace literals {

/// Returns the number as it is written in the source, which is never converted to a double:
/// `-12.50_decimal`. A literal that is not decimal, or has digit separators, does not compile.
template <char... Characters>
JXDecimal operator""_decimal() noexcept {
  static_assert(
      (((Characters >= '0' && Characters <= '9') || Characters == '.' || Characters == 'e' ||
        Characters == 'E' || Characters == '+' || Characters == '-') &&
       ...),
      "the literal must be a decimal number without digit separators");
  constexpr char text[] = {Characters..., '\0'};
  return JXDecimal::fromString(std::string_view(text, sizeof...(Characters)));
}
/// Returns `JXDecimal::fromString` of the string: `"-12.50"_decimal`.
inline JXDecimal operator""_decimal(const char* text, std::size_t length) noexcept {
  return JXDecimal::fromString(std::string_view(text, length));
}

}  // namespace literals

}  // namespace jx
