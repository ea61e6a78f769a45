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

/// One JSON value, or none at all: absent differs from JSON's null.
///
/// Objects and arrays are handles: a copy of the value refers to the same object. Numbers are kept
/// as their plain decimal digits, so that they come out digit for digit.
class JX_API JXJsonValue {
 public:
  /// What a value is; absent is none.
  enum class Kind { Absent, Null, Bool, Number, String, Object, Array };

  /// The absent value.
  JXJsonValue() = default;
  /// The absent value.
  JXJsonValue(std::nullptr_t) {}
  /// JSON's null, which is a value.
  static JXJsonValue null();
  /// A number from its text, digit for digit: a plus sign and leading zeros are dropped, an
  /// exponent is written out. Absent when the text is no number.
  static JXJsonValue numberFromString(const JXString& text);

  /// Only a `bool` itself: a pointer is no truth value.
  template <typename Bool, typename = std::enable_if_t<std::is_same_v<Bool, bool>>, typename = void>
  JXJsonValue(Bool value) : value_(value) {}
  /// The integer itself.
  template <typename Integer, typename = std::enable_if_t<detail::isNumberInteger<Integer>>>
  JXJsonValue(Integer value) : JXJsonValue(JXDecimal(value)) {}
  /// Absent when the number is not-a-number.
  JXJsonValue(const JXDecimal& number);
  /// Absent when the string is.
  JXJsonValue(JXString text);
  /// The text up to its NUL; absent for a null pointer.
  JXJsonValue(const char* text) : JXJsonValue(JXString(text)) {}
  /// A text.
  JXJsonValue(std::string_view text) : JXJsonValue(JXString(text)) {}
  /// A text.
  JXJsonValue(const std::string& text) : JXJsonValue(JXString(text)) {}
  /// Absent when the handle is.
  JXJsonValue(JXJsonObject object);
  /// Absent when the handle is.
  JXJsonValue(JXJsonArray array);

  /// What this value is.
  Kind kind() const noexcept { return static_cast<Kind>(value_.index()); }
  /// True unless the value is absent; JSON's null is present.
  bool isPresent() const noexcept { return kind() != Kind::Absent; }

  /// False unless the value is a true boolean.
  bool boolValue() const noexcept;
  /// The text of a string value; absent for every other kind.
  JXString string() const;
  /// The digits of a number value; absent for every other kind.
  JXString numberString() const;
  /// The number; not-a-number for every other kind.
  JXDecimal decimal() const;
  /// The handle; absent for every other kind.
  JXJsonObject object() const;
  /// The handle; absent for every other kind.
  JXJsonArray array() const;

 private:
  friend class JXJsonNode;
  friend class JXJsonTextSink;

  struct Null {};
  struct Number {
    JXString digits;
  };

  // The order of the alternatives is the order of Kind.
  std::variant<std::monostate, Null, bool, Number, JXString, JXJsonObject, JXJsonArray> value_;
};

/// One entry of an object.
struct JX_API JXJsonEntry {
  /// Its key; any text, the empty one too.
  JXString key;
  /// Its value; never absent inside an object.
  JXJsonValue value;
};

}  // namespace jx
