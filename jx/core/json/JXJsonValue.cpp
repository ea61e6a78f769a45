// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonValue.h"

#include <optional>
#include <utility>

#include "jx/core/json/JXDecimalText.h"

namespace jx {

JXJsonValue JXJsonValue::null() {
  JXJsonValue value;
  value.value_ = Null{};
  return value;
}

JXJsonValue JXJsonValue::numberFromString(const JXString& text) {
  JXJsonValue value;
  const std::optional<JXDecimalText> parts = JXDecimalText::parse(text.view());
  if (!parts) return value;
  if (const std::optional<std::string> digits = parts->toPlain()) value.value_ = Number{*digits};
  return value;
}

JXJsonValue::JXJsonValue(const JXDecimal& number) {
  if (!number.isNaN()) value_ = Number{number.toString()};
}

JXJsonValue::JXJsonValue(JXString text) {
  if (text.isPresent()) value_ = std::move(text);
}

JXJsonValue::JXJsonValue(JXJsonObject object) {
  if (object.isPresent()) value_ = std::move(object);
}

JXJsonValue::JXJsonValue(JXJsonArray array) {
  if (array.isPresent()) value_ = std::move(array);
}

bool JXJsonValue::boolValue() const noexcept {
  const bool* value = std::get_if<bool>(&value_);
  return value != nullptr && *value;
}

JXString JXJsonValue::string() const {
  const JXString* const text = asString();
  return text != nullptr ? *text : JXString();
}

JXString JXJsonValue::numberString() const {
  const Number* number = std::get_if<Number>(&value_);
  return number != nullptr ? number->digits : JXString();
}

JXDecimal JXJsonValue::decimal() const { return JXDecimal::fromString(numberString()); }

JXJsonObject JXJsonValue::object() const {
  const JXJsonObject* object = std::get_if<JXJsonObject>(&value_);
  return object != nullptr ? *object : JXJsonObject(nullptr);
}

JXJsonArray JXJsonValue::array() const {
  const JXJsonArray* array = std::get_if<JXJsonArray>(&value_);
  return array != nullptr ? *array : JXJsonArray(nullptr);
}

}  // namespace jx
