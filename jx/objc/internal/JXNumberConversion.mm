// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXNumberConversion.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#import "jx/objc/internal/JXConversion.h"

namespace jx::objc {
namespace {

// GNUstep cannot read more than 38 digits, zeros included: without the zeros at both ends and with
// an exponent.
std::string shortForm(std::string digits) {
  int exponent = 0;
  if (const std::size_t point = digits.find('.'); point != digits.npos) {
    digits.erase(point, 1);
    exponent = -static_cast<int>(digits.size() - point);
  }
  const std::size_t start = digits[0] == '-' ? 1 : 0;
  const std::size_t first = digits.find_first_not_of('0', start);
  if (first == digits.npos) return "0";
  digits.erase(start, first - start);
  const std::size_t end = digits.find_last_not_of('0') + 1;
  exponent += static_cast<int>(digits.size() - end);
  digits.resize(end);
  return digits + "e" + std::to_string(exponent);
}

NSDecimalNumber* decimalNumberOf(const JXDecimal& number) {
  std::string digits = number.toString();
  if (digits.size() > 38) digits = shortForm(std::move(digits));
  // A dictionary without entries is a locale whose decimal separator is a point.
  return [NSDecimalNumber decimalNumberWithString:toFoundation(JXString(digits))
                                           locale:[NSDictionary dictionary]];
}

}  // namespace

bool isBoolean(NSNumber* number) {
  return [number isKindOfClass:[[NSNumber numberWithBool:YES] class]];
}

JXDecimal decimalOf(NSNumber* number) {
  if ([number isKindOfClass:[NSDecimalNumber class]]) {
    NSDecimal value = [number decimalValue];
    if (NSDecimalIsNotANumber(&value)) return JXDecimal::nan();
    // GNUstep writes zero with a fraction.
    if ([number isEqualToNumber:[NSDecimalNumber zero]]) return JXDecimal();
    return JXDecimal::fromString(toString(NSDecimalString(&value, nil), "NSDecimalNumber"));
  }
  switch ([number objCType][0]) {
    case 'f':
      return JXDecimal::fromString(toString([number stringValue], "NSNumber"));
    case 'd':
      return JXDecimal::fromDouble([number doubleValue]);
    case 'Q':
    case 'L':
      return JXDecimal([number unsignedLongLongValue]);
    default:
      return JXDecimal([number longLongValue]);
  }
}

id numberOf(const JXJsonValue& value) {
  const std::string digits = value.numberString().toStdString();
  const bool isNegative = digits[0] == '-';
  const std::size_t length = digits.size() - (isNegative ? 1 : 0);
  // Up to 18 digits fit into 64 bits, whatever they are.
  if (length <= 18 && digits.find_first_not_of("0123456789", isNegative ? 1 : 0) == digits.npos) {
    return [NSNumber numberWithLongLong:std::stoll(digits)];
  }
  const JXDecimal decimal = JXDecimal::fromString(value.numberString());
  if (!decimal.isNaN()) return decimalNumberOf(decimal);
  // Beyond the exponents of NSDecimalNumber, and perhaps of a double.
  const double approximate = std::strtod(digits.c_str(), nullptr);
  if (!std::isfinite(approximate)) return [NSNull null];
  return [NSNumber numberWithDouble:approximate];
}

std::optional<JXDecimal> toDecimal(id object, const char* place) {
  if (!isOf([NSNumber class], object, place)) return std::nullopt;
  return decimalOf(object);
}

NSDecimalNumber* toFoundation(const std::optional<JXDecimal>& number) {
  if (!number) return nil;
  return number->isNaN() ? [NSDecimalNumber notANumber] : decimalNumberOf(*number);
}

}  // namespace jx::objc
