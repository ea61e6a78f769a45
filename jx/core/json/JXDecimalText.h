// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// The parts of a decimal string. The views refer to the parsed string.
struct JXDecimalText {
  bool negative = false;
  std::string_view integerDigits;   ///< before the point; may be empty when there is a fraction
  std::string_view fractionDigits;  ///< after the point; may be empty
  std::int64_t exponent = 0;        ///< the power of ten after "e", limited to +/- 1,000,000

  /// Parses an optional sign, digits with an optional point (at least one digit) and an optional
  /// exponent. Returns nullopt for any other string, including one with spaces.
  static std::optional<JXDecimalText> parse(std::string_view text) noexcept;

  /// Returns the number as plain JSON digits with every digit kept: no plus sign, no leading zeros,
  /// no exponent. Returns nullopt when an exponent would make it longer than `kMaxPlainDigits`.
  std::optional<std::string> toPlain() const;

  /// Returns `digits` times ten to the power of `exponent`, without an exponent.
  static std::string plain(bool negative, std::string_view digits, std::int64_t exponent);

  /// Limits the output of a short string with a large exponent.
  static constexpr std::size_t kMaxPlainDigits = 4096;
};

}  // namespace jx
