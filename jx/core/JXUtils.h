// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Writes typed values into JSON objects, and converts between texts and numbers. An absent value
/// leaves the object unchanged, so that what stood under the key before survives; an empty string,
/// a zero, `false` and an empty array are values and are written. An absent `dict` is left alone.
class JX_API JXUtils {
 public:
  JXUtils() = delete;

  /// Writes the text; an empty one is written.
  static void setString_forKey_onDict(const JXString& value, std::string_view key,
                                      JXJsonObject& dict);
  /// Writes the number digit for digit. Not-a-number counts as absent.
  static void setFloat_forKey_onDict(const std::optional<JXDecimal>& value, std::string_view key,
                                     JXJsonObject& dict);
  /// Writes the number that the text holds, digit for digit: the scale is kept, an exponent is
  /// written out, a plus sign and leading zeros are dropped. A text that is no number counts as
  /// absent.
  static void setFloatFromString_forKey_onDict(const JXString& value, std::string_view key,
                                               JXJsonObject& dict);
  /// Writes the boolean.
  static void setBool_forKey_onDict(bool value, std::string_view key, JXJsonObject& dict);
  /// Stores the very array; an empty one is written.
  static void setArray_forKey_onDict(const JXJsonArray& value, std::string_view key,
                                     JXJsonObject& dict);
  /// Stores the very object: what is added to `value` later shows in `dict`.
  static void setJson_forKey_onDict(const JXJsonObject& value, std::string_view key,
                                    JXJsonObject& dict);

  /// The decimal integer at the start of the text, with its sign; 0 when there is none. A value
  /// beyond 64 bits is held at the nearest end of the range.
  static std::int64_t numberFromNSString(const JXString& text);
  /// The value of a text that is digits and nothing else, modulo 2^64; 0 for any other text.
  static std::uint64_t unsignedFromDigits(const JXString& text);
  /// The object as compact JSON text; absent for an absent object.
  static JXString jsonDictionaryToString(const JXJsonObject& object);
};

}  // namespace jx
