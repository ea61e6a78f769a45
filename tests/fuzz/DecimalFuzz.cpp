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

#include "jx/core/json/JXDecimal.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceJson.h"

namespace jx::fuzz {
namespace {

constexpr std::size_t kDigits = 38;
constexpr std::size_t kMostFraction = 128;
constexpr std::size_t kMostWhole = kDigits + 127;
constexpr std::string_view kNotANumber = "NaN";

std::string_view takeDigits(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  const std::string_view digits = text.substr(0, end);
  text.remove_prefix(end);
  return digits;
}

void takeSign(std::string_view& text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
}

// Sign, digits with a point, exponent.
bool isNumber(std::string_view text) {
  takeSign(text);
  std::size_t digits = takeDigits(text).size();
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    digits += takeDigits(text).size();
  }
  if (digits == 0) return false;
  if (text.empty()) return true;
  if (text.front() != 'e' && text.front() != 'E') return false;
  text.remove_prefix(1);
  takeSign(text);
  return !takeDigits(text).empty() && text.empty();
}

// Adds one to the last digit; the digits may become one more.
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

// What a number of plain digits prints as, by moving digits about.
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
    scale = std::min(scale, kMostFraction);
    return sign + (scale == 0 ? "0" : "0." + std::string(scale, '0'));
  }
  digits.erase(0, first);
  // Dropped from the end: what is beyond 38 digits, and what is beyond 128 places.
  std::size_t dropped = digits.size() > kDigits ? digits.size() - kDigits : 0;
  if (scale > kMostFraction) dropped = std::max(dropped, scale - kMostFraction);
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
    return digits.size() > kMostWhole ? std::string(kNotANumber) : sign + digits;
  }
  scale -= dropped;
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  if (digits.size() - scale > kMostWhole) return std::string(kNotANumber);
  return sign + digits.insert(digits.size() - scale, 1, '.');
}

// Nothing for a number whose exponent is too far away to write it out.
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
    require(printed == kNotANumber, "not-a-number prints as NaN", printed, kNotANumber);
    const JXDecimal same = number;
    require(number != same, "not-a-number equals nothing");
    return;
  }
  std::string_view rest = printed;
  if (rest.front() == '-') rest.remove_prefix(1);
  const std::string_view whole = takeDigits(rest);
  require(!whole.empty() && (whole == "0" || whole.front() != '0'),
          "the whole part is digits without a leading zero", printed, {});
  if (!rest.empty()) {
    require(rest.front() == '.', "only digits and a point are printed", printed, {});
    rest.remove_prefix(1);
    require(!takeDigits(rest).empty() && rest.empty(), "digits stand behind the point", printed,
            {});
  }
  const JXDecimal again = JXDecimal::fromString(printed);
  require(again == number, "what is printed reads as the number", again.toString(), printed);
  require(again.toString() == printed, "and prints the same", again.toString(), printed);
}

void checkText(std::string_view text) {
  const JXDecimal number = JXDecimal::fromString(text);
  checkPrinted(number);
  if (!isNumber(text)) {
    require(number.isNaN(), "what is no number is not-a-number", number.toString(), text);
    return;
  }
  const std::optional<std::string> wanted = expected(text);
  if (wanted) require(number.toString() == *wanted, "digit for digit", number.toString(), *wanted);
}

void checkDouble(double value) {
  const JXDecimal number = JXDecimal::fromDouble(value);
  checkPrinted(number);
  if (!std::isfinite(value)) {
    require(number.isNaN(), "what is not finite is not-a-number");
    return;
  }
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific)
          .ptr;
  const std::string_view shortest(text.data(), static_cast<std::size_t>(end - text.data()));
  const JXDecimal wanted = JXDecimal::fromString(shortest);
  require(number.isNaN() == wanted.isNaN(), "a number when it fits", shortest, {});
  if (number.isNaN()) return;
  require(number == wanted, "the shortest digits", number.toString(), shortest);
  // Below that a decimal has fewer digits than a double.
  if (std::fabs(value) < 1e-110) return;
  require(std::strtod(number.toString().c_str(), nullptr) == value, "reads back as the double",
          number.toString(), shortest);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::Input input(data, size);
  if ((input.byte() & 1) == 0) {
    jx::fuzz::checkText(input.rest());
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
