// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

namespace detail {
/// True for the integers that are numbers; `bool` and characters are none.
template <typename T>
inline constexpr bool isNumberInteger =
    std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char> &&
    !std::is_same_v<T, wchar_t> && !std::is_same_v<T, char16_t> && !std::is_same_v<T, char32_t>;
}  // namespace detail

/// An exact decimal number: up to 38 significant digits and a power of ten from -128 to 127.
///
/// Money and counts are held in it, so that 0.1 stays 0.1. The scale that it was given is kept:
/// "12.50" prints as 12.50. More than 38 significant digits are rounded half away from zero. A
/// magnitude that does not fit and a text that is no number give the not-a-number value, which is
/// left out wherever it would be written. A value type; copies are cheap and never allocate.
class JX_API JXDecimal {
 public:
  /// Zero.
  constexpr JXDecimal() noexcept = default;

  /// The integer itself. `bool` and characters are no numbers and do not compile.
  template <typename Integer, typename = std::enable_if_t<detail::isNumberInteger<Integer>>>
  JXDecimal(Integer value) noexcept
      : JXDecimal(value < 0, value < 0 ? 0 - static_cast<std::uint64_t>(value)
                                       : static_cast<std::uint64_t>(value)) {}

  /// Binary floating point has no exact decimal: say `fromDouble`, or pass the text.
  template <typename Floating, typename = std::enable_if_t<std::is_floating_point_v<Floating>>,
            typename = void>
  JXDecimal(Floating) = delete;

  /// A decimal text: an optional sign, digits with an optional point, an optional exponent
  /// ("-12.50", "+3", ".5", "1e3"). Not-a-number for anything else, an absent text included.
  static JXDecimal fromString(const JXString& text) noexcept;
  /// The shortest decimal that reads back as the same double; infinities and NaN are not-a-number.
  static JXDecimal fromDouble(double value) noexcept;
  /// The value that is no number: equal to nothing, written nowhere.
  static constexpr JXDecimal nan() noexcept {
    JXDecimal result;
    result.isNaN_ = true;
    return result;
  }

  /// True when this is no number.
  constexpr bool isNaN() const noexcept { return isNaN_; }

  /// Plain digits, never an exponent: "-12.50", "100000". "NaN" for the not-a-number value.
  std::string toString() const;

  /// Equal in value, whatever the scale: 12.50 equals 12.5. Not-a-number equals nothing.
  friend JX_API bool operator==(const JXDecimal& a, const JXDecimal& b) noexcept;
  /// The opposite of ==: not-a-number differs from everything.
  friend bool operator!=(const JXDecimal& a, const JXDecimal& b) noexcept { return !(a == b); }

 private:
  JXDecimal(bool negative, std::uint64_t magnitude) noexcept;
  static JXDecimal fromDigits(bool negative, std::string_view integerDigits,
                              std::string_view fractionDigits, std::int64_t exponent) noexcept;
  std::string significantDigits() const;
  std::string shortText() const;

  // Value = (high_ * 10^19 + low_) * 10^exponent_, both halves below 10^19: 38 digits together.
  std::uint64_t high_ = 0;
  std::uint64_t low_ = 0;
  std::int16_t exponent_ = 0;
  bool negative_ = false;
  bool isNaN_ = false;
};

/// Prints what `toString` gives: for test messages and logs.
JX_API std::ostream& operator<<(std::ostream& out, const JXDecimal& value);

}  // namespace jx
