// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXFieldValue.h"

#include <utility>

#include "jx/catalogue/JXFieldTable.h"
#include "jx/catalogue/JXOmissionLog.h"
#include "jx/core/JXLogger.h"
#include "jx/platform/JXStringBuilder.h"

namespace jx {
namespace detail {

void logNullElement() {
  JXLogger::sharedInstance().logMessage_withLevel("List element is null; skipped", 3);
}

}  // namespace detail

namespace fieldvalue {
namespace {

using Kind = JXJsonValue::Kind;

// Contains the additional properties of an item or a product.
constexpr std::string_view kParameters = "parameters";

}  // namespace

void write(const JXString& value, std::string_view key, JXJsonSink& sink) { sink.text(key, value); }

void write(const std::optional<JXDecimal>& value, std::string_view key, JXJsonSink& sink) {
  if (value && value->isNaN()) return JXOmissionLog::reportNaN(key);
  sink.number(key, value);
}

void write(bool value, std::string_view key, JXJsonSink& sink) { sink.flag(key, value); }

// A null list of strings is written as an empty array, like a null list of items.
void write(const JXList<JXString>& value, std::string_view key, JXJsonSink& sink) {
  sink.beginArray(key);
  for (const JXString& string : value) {
    if (string.isPresent()) {
      sink.stringElement(string);
    } else {
      JXOmissionLog::reportNullElement(key);
    }
  }
  sink.endArray();
}

void write(const JXJsonArray& value, std::string_view key, JXJsonSink& sink) {
  sink.value(key, value);
}

void writeNumbered(const JXList<JXString>& value, std::string_view prefix, JXJsonSink& sink) {
  std::uint64_t number = 0;
  std::string key(prefix);
  for (const JXString& string : value) {
    key.resize(prefix.size());
    key.append(decimalString(++number).view());
    if (string.isPresent()) {
      sink.text(key, string);
    } else {
      JXOmissionLog::reportNullString(key);
    }
  }
}

void writeEnumValue(int value, const JXEnumStrings& strings, std::string_view key,
                    JXJsonSink& sink) {
  const JXString string = strings.stringOf(value);
  if (!string.isPresent()) return JXOmissionLog::reportOutsideEnumeration(key);
  sink.text(key, string);
}

JXFieldState state(const JXString& value) {
  return value.isPresent() ? JXFieldState::ofJson(Kind::String, value.size()) : JXFieldState();
}

// NaN is not written, so it counts as null: an event and its JSON get the same validation result.
JXFieldState state(const std::optional<JXDecimal>& value) {
  return value && !value->isNaN() ? JXFieldState::ofJson(Kind::Number, 0) : JXFieldState();
}

JXFieldState state(bool) { return JXFieldState::ofJson(Kind::Bool, 0); }

JXFieldState state(const JXJsonArray& value) {
  return value.isPresent() ? JXFieldState::ofJson(Kind::Array, value.size()) : JXFieldState();
}

std::string read(const JXJsonValue& json, JXString& value) {
  if (!isNull(json) && json.kind() != Kind::String) return "must be a string";
  value = json.string();
  return {};
}

std::string read(const JXJsonValue& json, std::optional<JXDecimal>& value) {
  if (isNull(json)) {
    value.reset();
    return {};
  }
  if (json.kind() != Kind::Number && json.kind() != Kind::String) return "must be a decimal number";
  const JXDecimal number =
      JXDecimal::fromString(json.kind() == Kind::Number ? json.numberString() : json.string());
  if (number.isNaN()) return "must be a decimal number";
  value = number;
  return {};
}

std::string read(const JXJsonValue& json, bool& value) {
  if (json.kind() != Kind::Bool) return "must be true or false";
  value = json.boolValue();
  return {};
}

std::string read(const JXJsonValue& json, JXList<JXString>& value) {
  if (isNull(json)) {
    value = nullptr;
    return {};
  }
  if (json.kind() != Kind::Array) return "must be an array";
  JXList<JXString> strings;
  for (const JXJsonValue& element : json.array().values()) {
    if (!isNull(element) && element.kind() != Kind::String) return "must contain only strings";
    strings.append(element.string());
  }
  value = strings;
  return {};
}

std::string read(const JXJsonValue& json, JXJsonArray& value) {
  if (!isNull(json) && json.kind() != Kind::Array) return "must be an array";
  value = json.array();
  return {};
}

std::string readEnumValue(const JXJsonValue& json, const JXEnumStrings& strings, int& value) {
  const JXString name = json.string();
  for (std::size_t i = 0; i < strings.count; ++i) {
    if (name.isPresent() && name.view() == strings.enumerators[i]) {
      value = static_cast<int>(i);
      return {};
    }
  }
  return "must be one of the enumeration's names";
}

std::string readBlock(const JXJsonObject& json, JXAdditionalProperties& block,
                      const JXFieldTable& table) {
  for (const JXJsonEntry& entry : json.entries()) {
    const std::string name = entry.key.toStdString();
    if (name == kParameters) {
      if (entry.value.kind() != Kind::Object) return "parameters must be an object";
      block.addAdditionalProperty(entry.value.object());
      continue;
    }
    const std::size_t field = table.findProperty(name);
    if (field == JXFieldTable::npos) return name + " is not a field";
    const std::string error = table.set(block, field, entry.value);
    if (!error.empty()) return name + " " + error;
  }
  return {};
}

JXJsonValue blockToJson(const JXAdditionalProperties& block, const JXFieldTable& table) {
  JXJsonObject json;
  for (std::size_t i = 0; i < table.fields().size(); ++i) {
    const JXFieldInfo& field = table.fields()[i];
    const JXJsonValue value = table.get(block, i);
    const bool isNullInitially =
        field.kind == JXFieldKind::String || field.kind == JXFieldKind::Number;
    if (value.isPresent()) {
      json.set(field.property, value);
    } else if (!isNullInitially) {
      json.set(field.property, JXJsonValue::null());
    }
  }
  const JXJsonObject parameters = block.getAdditionalProperties();
  if (parameters.size() != 0) json.set(kParameters, parameters.mutableCopy());
  return json;
}

JXJsonValue toJson(const JXString& value) { return value; }

JXJsonValue toJson(const std::optional<JXDecimal>& value) {
  return value ? JXJsonValue(*value) : JXJsonValue();
}

JXJsonValue toJson(bool value) { return value; }

JXJsonValue toJson(const JXList<JXString>& value) {
  if (!value.isPresent()) return {};
  JXJsonArray array;
  for (const JXString& string : value)
    array.append(string.isPresent() ? JXJsonValue(string) : JXJsonValue::null());
  return array;
}

JXJsonValue toJson(const JXJsonArray& value) {
  if (!value.isPresent()) return {};
  JXJsonArray array;
  for (const JXJsonValue& element : value.values())
    array.append(element);
  return array;
}

}  // namespace fieldvalue
}  // namespace jx
