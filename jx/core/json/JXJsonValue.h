// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonArray.h"
#include "jx/core/json/JXJsonObject.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A JSON value, or no value ("absent"), which differs from JSON null: an absent value is omitted
/// from objects and arrays.
///
/// Objects and arrays are handles: a copy of the value refers to the same object. Numbers are
/// stored as their plain decimal digits, so that they are written exactly, without rounding.
class JX_API JXJsonValue {
 public:
  /// The type of a value; Absent means no value.
  enum class Kind { Absent, Null, Bool, Number, String, Object, Array };

  /// Creates an absent value.
  JXJsonValue() = default;
  /// Creates an absent value.
  JXJsonValue(std::nullptr_t) {}
  /// Returns JSON null.
  static JXJsonValue null();
  /// Returns the number in a string, exactly: drops a plus sign and leading zeros, expands an
  /// exponent. Returns an absent value when the string is null or not a number, or when the
  /// exponent makes it longer than 4,096 digits.
  static JXJsonValue numberFromString(const JXString& text);

  /// Creates a boolean. Accepts only `bool`, so that pointers do not convert.
  template <typename Bool, typename = std::enable_if_t<std::is_same_v<Bool, bool>>, typename = void>
  JXJsonValue(Bool value) : value_(value) {}
  /// Creates a number from an integer.
  template <typename Integer, typename = std::enable_if_t<detail::isNumberInteger<Integer>>>
  JXJsonValue(Integer value) : JXJsonValue(JXDecimal(value)) {}
  /// Creates a number; absent for NaN.
  JXJsonValue(const JXDecimal& number);
  /// Creates a string; absent for null.
  JXJsonValue(JXString text);
  /// Creates a string from a NUL-terminated string; absent for null.
  JXJsonValue(const char* text) : JXJsonValue(JXString(text)) {}
  /// Creates a string.
  JXJsonValue(std::string_view text) : JXJsonValue(JXString(text)) {}
  /// Creates a string.
  JXJsonValue(const std::string& text) : JXJsonValue(JXString(text)) {}
  /// Creates an object; absent for a null handle.
  JXJsonValue(JXJsonObject object);
  /// Creates an array; absent for a null handle.
  JXJsonValue(JXJsonArray array);

  /// Returns the type of the value.
  Kind kind() const noexcept { return static_cast<Kind>(value_.index()); }
  /// Returns false for an absent value; true for any other, including JSON null.
  bool isPresent() const noexcept { return kind() != Kind::Absent; }

  /// Returns true if the value is the boolean `true`; false otherwise.
  bool boolValue() const noexcept;
  /// Returns the string; null for any other kind.
  JXString string() const;
  /// Returns the digits of a number; null for any other kind.
  JXString numberString() const;
  /// Returns the number; NaN for any other kind.
  JXDecimal decimal() const;
  /// Returns the object; a null handle for any other kind.
  JXJsonObject object() const;
  /// Returns the array; a null handle for any other kind.
  JXJsonArray array() const;

 private:
  friend class JXDynamicStore;
  friend class JXJsonNode;
  friend class JXJsonObject;
  friend class JXJsonTextSink;

  /// Returns the string without a copy; null for any other kind.
  const JXString* asString() const noexcept { return std::get_if<JXString>(&value_); }

  struct Null {};
  struct Number {
    JXString digits;
  };

  // The order of the alternatives is the order of Kind.
  std::variant<std::monostate, Null, bool, Number, JXString, JXJsonObject, JXJsonArray> value_;
};

/// An entry of an object.
struct JX_API JXJsonEntry {
  /// The key; any string, including an empty one.
  JXString key;
  /// The value; never absent inside an object.
  JXJsonValue value;
};

}  // namespace jx
