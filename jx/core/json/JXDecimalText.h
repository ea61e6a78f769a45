// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// The parts of a decimal number's text. The views point into the text that was parsed.
struct JXDecimalText {
  bool negative = false;
  std::string_view integerDigits;   ///< before the point; may be empty when there is a fraction
  std::string_view fractionDigits;  ///< behind the point; may be empty
  std::int64_t exponent = 0;        ///< the power of ten behind "e", held within +/- 1,000,000

  /// An optional sign, digits with an optional point (at least one digit), an optional exponent;
  /// nothing for any other text, blanks included.
  static std::optional<JXDecimalText> parse(std::string_view text) noexcept;

  /// The number as plain JSON digits, every given digit kept: no plus sign, no leading zeros, no
  /// exponent. Nothing when the digits would exceed `kMaxPlainDigits`.
  std::optional<std::string> toPlain() const;

  /// `digits` times ten to the power of `exponent`, written without an exponent.
  static std::string plain(bool negative, std::string_view digits, std::int64_t exponent);

  /// An exponent may make a short text long; a number of more digits than this is no amount.
  static constexpr std::size_t kMaxPlainDigits = 4096;
};

}  // namespace jx
