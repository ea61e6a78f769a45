// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "jx/core/JXUtils.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/session/JXLeadingNumber.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceJson.h"

namespace jx::fuzz {
namespace {

constexpr std::size_t kDigits = 38;
constexpr std::size_t kMaxFraction = 128;
constexpr std::size_t kMaxWhole = kDigits + 127;
constexpr std::string_view kNotANumber = "NaN";

std::string_view consumeDigits(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  const std::string_view digits = text.substr(0, end);
  text.remove_prefix(end);
  return digits;
}

void consumeSign(std::string_view& text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
}

// Returns whether the string is an optional sign, digits with an optional point, and an optional
// exponent.
bool isNumber(std::string_view text) {
  consumeSign(text);
  std::size_t digits = consumeDigits(text).size();
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    digits += consumeDigits(text).size();
  }
  if (digits == 0) return false;
  if (text.empty()) return true;
  if (text.front() != 'e' && text.front() != 'E') return false;
  text.remove_prefix(1);
  consumeSign(text);
  return !consumeDigits(text).empty() && text.empty();
}

// Adds one to the number, which may add a digit.
void increment(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(0, 1, '1');
}

// Returns the expected string for a number of plain digits, by string operations only.
std::string rounded(std::string plain) {
  const std::string sign = plain.front() == '-' ? "-" : "";
  plain.erase(0, sign.size());
  const std::size_t point = plain.find('.');
  std::string digits = plain;
  std::size_t scale = 0;
  if (point != std::string::npos) {
    scale = plain.size() - point - 1;
    digits.erase(point, 1);
  }
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) {
    scale = std::min(scale, kMaxFraction);
    return sign + (scale == 0 ? "0" : "0." + std::string(scale, '0'));
  }
  digits.erase(0, first);
  // Digits after the 38th significant digit and the 128th decimal place are dropped.
  std::size_t dropped = digits.size() > kDigits ? digits.size() - kDigits : 0;
  if (scale > kMaxFraction) dropped = std::max(dropped, scale - kMaxFraction);
  if (dropped > digits.size()) return std::string(kNotANumber);
  const bool up = dropped != 0 && digits[digits.size() - dropped] >= '5';
  digits.resize(digits.size() - dropped);
  if (up) increment(digits);
  if (digits.empty()) return std::string(kNotANumber);
  if (digits.size() > kDigits) {
    digits.pop_back();
    ++dropped;
  }
  if (dropped >= scale) {
    digits.append(dropped - scale, '0');
    return digits.size() > kMaxWhole ? std::string(kNotANumber) : sign + digits;
  }
  scale -= dropped;
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  if (digits.size() - scale > kMaxWhole) return std::string(kNotANumber);
  return sign + digits.insert(digits.size() - scale, 1, '.');
}

// Returns the expected string; nullopt if the exponent is too large to write the number out.
std::optional<std::string> expected(std::string_view text) {
  const std::size_t e = text.find_first_of("eE");
  if (e != std::string_view::npos) {
    constexpr long kFar = 1'000;
    const long exponent = std::strtol(std::string(text.substr(e + 1)).c_str(), nullptr, 10);
    if (exponent > kFar || exponent < -kFar) return std::nullopt;
  }
  return rounded(plainDigits(text));
}

void checkPrinted(const JXDecimal& number) {
  const std::string printed = number.toString();
  if (number.isNaN()) {
    require(printed == kNotANumber, "NaN is printed as NaN", printed, kNotANumber);
    const JXDecimal same = number;
    require(number != same, "NaN is not equal to itself");
    return;
  }
  std::string_view rest = printed;
  if (rest.front() == '-') rest.remove_prefix(1);
  const std::string_view whole = consumeDigits(rest);
  require(!whole.empty() && (whole == "0" || whole.front() != '0'),
          "the integer part has no leading zero", printed, {});
  if (!rest.empty()) {
    require(rest.front() == '.', "only digits and a point are printed", printed, {});
    rest.remove_prefix(1);
    require(!consumeDigits(rest).empty() && rest.empty(), "digits follow the point", printed, {});
  }
  const JXDecimal again = JXDecimal::fromString(printed);
  require(again == number, "the printed string is parsed as the same number", again.toString(),
          printed);
  require(again.toString() == printed, "the parsed number is printed as the same string",
          again.toString(), printed);
}

void checkText(std::string_view text) {
  const JXDecimal number = JXDecimal::fromString(text);
  checkPrinted(number);
  if (!isNumber(text)) {
    require(number.isNaN(), "a string that is not a number is parsed as NaN", number.toString(),
            text);
    return;
  }
  const std::optional<std::string> wanted = expected(text);
  if (wanted)
    require(number.toString() == *wanted, "the printed digits are exact", number.toString(),
            *wanted);
}

void checkDouble(double value) {
  const JXDecimal number = JXDecimal::fromDouble(value);
  checkPrinted(number);
  if (!std::isfinite(value)) {
    require(number.isNaN(), "infinity and NaN are converted to NaN");
    return;
  }
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific)
          .ptr;
  const std::string_view shortest(text.data(), static_cast<std::size_t>(end - text.data()));
  const JXDecimal wanted = JXDecimal::fromString(shortest);
  require(number.isNaN() == wanted.isNaN(), "a double that fits is converted to a number", shortest,
          {});
  if (number.isNaN()) return;
  require(number == wanted, "a double is converted to its shortest digits", number.toString(),
          shortest);
  // Below this value, a decimal has fewer digits than a double.
  if (std::fabs(value) < 1e-110) return;
  require(std::strtod(number.toString().c_str(), nullptr) == value,
          "the printed string is parsed as the same double", number.toString(), shortest);
}

// Tests the readers of numbers in stored strings with those of the C library.
void checkStored(std::string_view text) {
  const std::string string(text.substr(0, text.find('\0')));
  const bool isDigits = string.find_first_not_of("0123456789") == std::string::npos;
  constexpr std::size_t kMaxExactDigits = 19;
  const std::uint64_t digits = JXUtils::unsignedFromDigits(string);
  require(isDigits || digits == 0, "only digits are a number", std::to_string(digits), string);
  if (isDigits && string.size() <= kMaxExactDigits) {
    require(digits == std::strtoull(string.c_str(), nullptr, 10), "the value of digits is exact",
            std::to_string(digits), string);
  }
  // The C library skips line breaks and reads other notations.
  const std::size_t first = string.find_first_not_of(" \t");
  if (first == std::string::npos || string.find_first_of("\n\v\f\rxXiInN") != std::string::npos)
    return;
  const std::int64_t number = JXUtils::numberFromNSString(string);
  require(number == std::strtoll(string.c_str(), nullptr, 10), "the leading number is returned",
          std::to_string(number), string);
  const double value = string[first] == '-' ? 0 : std::strtod(string.c_str(), nullptr);
  constexpr double kRange = 18446744073709551616.0;  // 2^64
  const std::uint64_t expected = value < kRange ? static_cast<std::uint64_t>(value) : UINT64_MAX;
  const std::uint64_t truncated = truncatedLeadingNumber(string);
  require(truncated == expected, "the leading number is truncated", std::to_string(truncated),
          string);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::Input input(data, size);
  if ((input.byte() & 1) == 0) {
    jx::fuzz::checkText(input.rest());
    jx::fuzz::checkStored(input.rest());
  } else {
    const std::uint64_t bits = input.number(8);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    jx::fuzz::checkDouble(value);
    jx::fuzz::checkPrinted(jx::JXDecimal(bits));
    jx::fuzz::checkPrinted(jx::JXDecimal(static_cast<std::int64_t>(bits)));
  }
  return 0;
}
