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

/// Writes typed values to JSON objects, and converts between strings and numbers. A null value
/// leaves `dict` unchanged: an earlier value under the key is kept. An empty string, zero, `false`
/// and an empty array are values and are written. A null `dict` is ignored.
class JX_API JXUtils {
 public:
  JXUtils() = delete;

  /// Writes a string under `key`; an empty string is written.
  static void setString_forKey_onDict(const JXString& value, std::string_view key,
                                      JXJsonObject& dict);
  /// Writes a number exactly, without rounding. NaN counts as null.
  static void setFloat_forKey_onDict(const std::optional<JXDecimal>& value, std::string_view key,
                                     JXJsonObject& dict);
  /// Writes the number that the string contains, without rounding: keeps the scale, expands an
  /// exponent, and removes a plus sign and leading zeros. A string that is not a number counts as
  /// null.
  static void setFloatFromString_forKey_onDict(const JXString& value, std::string_view key,
                                               JXJsonObject& dict);
  /// Writes a boolean under `key`.
  static void setBool_forKey_onDict(bool value, std::string_view key, JXJsonObject& dict);
  /// Writes an array by reference; an empty array is written.
  static void setArray_forKey_onDict(const JXJsonArray& value, std::string_view key,
                                     JXJsonObject& dict);
  /// Writes an object by reference: entries added to `value` later appear in `dict`.
  static void setJson_forKey_onDict(const JXJsonObject& value, std::string_view key,
                                    JXJsonObject& dict);

  /// Returns the signed decimal integer at the start of `string`, after spaces and tabs; 0 when
  /// there is none. A value outside the 64-bit range is clamped to it.
  static std::int64_t numberFromNSString(const JXString& string);
  /// Returns the value of a string of digits only, modulo 2^64; 0 for any other string.
  static std::uint64_t unsignedFromDigits(const JXString& string);
  /// Returns the object as compact JSON; null for a null object. Circular references and values
  /// that exceed the size limit are omitted and logged at level 3.
  static JXString jsonDictionaryToString(const JXJsonObject& object);
};

}  // namespace jx
