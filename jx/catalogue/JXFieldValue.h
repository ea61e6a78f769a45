// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "jx/catalogue/JXCondition.h"
#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXFieldTable;

/// The JSON strings of an enumeration and the names of its enumerators, both indexed by value.
/// Refers to the arrays, which must be constants.
struct JX_API JXEnumStrings {
  /// No strings.
  constexpr JXEnumStrings() = default;
  /// Refers to both arrays, which have the same length.
  template <std::size_t N>
  constexpr JXEnumStrings(const std::array<std::string_view, N>& stringOfEach,
                          const std::array<std::string_view, N>& nameOfEach)
      : strings(stringOfEach.data()), enumerators(nameOfEach.data()), count(N) {}

  const std::string_view* strings = nullptr;      ///< the JSON string: "mid-roll"
  const std::string_view* enumerators = nullptr;  ///< the name without its prefix: "MID_ROLL"
  /// The number of values of the enumeration.
  std::size_t count = 0;

  /// Returns the JSON string of `value`; null if `value` is not in the enumeration.
  JXString stringOf(int value) const { return isInside(value) ? strings[value] : JXString(); }
  /// Returns the enumerator's name of `value`; null if `value` is not in the enumeration.
  JXString enumeratorOf(int value) const {
    return isInside(value) ? enumerators[value] : JXString();
  }
  /// Returns the JSON string of each value, in order.
  std::vector<std::string_view> allStrings() const { return {strings, strings + count}; }
  /// Returns the enumerator's name for each value, in order.
  std::vector<std::string_view> allEnumerators() const {
    return {enumerators, enumerators + count};
  }

 private:
  bool isInside(int value) const { return value >= 0 && static_cast<std::size_t>(value) < count; }
};

namespace detail {
JX_API void logNullElement();
}

/// Writes, inspects and reads values of each field type. Items and products are classes derived
/// from JXAdditionalProperties with the functions `init()` and `fields()`.
namespace fieldvalue {

/// Returns true for JSON null and for an absent value.
inline bool isNull(const JXJsonValue& json) {
  return json.kind() == JXJsonValue::Kind::Absent || json.kind() == JXJsonValue::Kind::Null;
}

/// Writes the value under the key. Writes nothing for null and for a NaN amount, except that a null
/// list of strings or items is written as an empty array. Null elements are skipped. While an event
/// is executed, a NaN amount and a null string in a list are logged once per event and key.
/// @{
JX_API void write(const JXString& value, std::string_view key, JXJsonSink& sink);
JX_API void write(const std::optional<JXDecimal>& value, std::string_view key, JXJsonSink& sink);
JX_API void write(bool value, std::string_view key, JXJsonSink& sink);
JX_API void write(const JXList<JXString>& value, std::string_view key, JXJsonSink& sink);
JX_API void write(const JXJsonArray& value, std::string_view key, JXJsonSink& sink);
template <typename Block>
void write(const JXList<std::shared_ptr<Block>>& value, std::string_view key, JXJsonSink& sink) {
  sink.beginArray(key);
  for (const std::shared_ptr<Block>& block : value) {
    if (block) {
      sink.beginObjectElement();
      block->writeEntries(sink);
      sink.endObject();
    } else {
      detail::logNullElement();
    }
  }
  sink.endArray();
}
template <typename Block>
void write(const std::shared_ptr<Block>& value, std::string_view key, JXJsonSink& sink) {
  if (value) sink.block(key, *value);
}
/// @}
/// Writes each string under `prefix` followed by its position, from 1. A null string is not written
/// and its number is not used; logged as by `write`.
JX_API void writeNumbered(const JXList<JXString>& value, std::string_view prefix, JXJsonSink& sink);
/// Writes the string of the enumeration's value. A value outside the enumeration is not written;
/// logged as by `write`.
JX_API void writeEnumValue(int value, const JXEnumStrings& strings, std::string_view key,
                           JXJsonSink& sink);

/// Returns the state of the value. A NaN amount counts as null, because it is not written.
/// @{
JX_API JXFieldState state(const JXString& value);
JX_API JXFieldState state(const std::optional<JXDecimal>& value);
JX_API JXFieldState state(bool value);
JX_API JXFieldState state(const JXJsonArray& value);
template <typename Element>
JXFieldState state(const JXList<Element>& value) {
  if (!value.isPresent()) return {};
  return JXFieldState::ofJson(JXJsonValue::Kind::Array, value.size());
}
template <typename Block>
JXFieldState state(const std::shared_ptr<Block>& value) {
  return value ? JXFieldState::ofJson(JXJsonValue::Kind::Object, 0) : JXFieldState();
}
/// @}

/// Fills an item or a product, whose fields are those of `table`, from a JSON object: fields by
/// property name, additional properties from the entry "parameters". Returns an error as `read`.
JX_API std::string readBlock(const JXJsonObject& json, JXAdditionalProperties& block,
                             const JXFieldTable& table);
/// Returns the inverse of `readBlock`.
JX_API JXJsonValue blockToJson(const JXAdditionalProperties& block, const JXFieldTable& table);

/// Reads the value from JSON. Returns an empty string on success. On error, returns a message such
/// as "must be a string", to follow the field's name, and leaves `value` unchanged.
/// @{
JX_API std::string read(const JXJsonValue& json, JXString& value);
JX_API std::string read(const JXJsonValue& json, std::optional<JXDecimal>& value);
JX_API std::string read(const JXJsonValue& json, bool& value);
JX_API std::string read(const JXJsonValue& json, JXList<JXString>& value);
JX_API std::string read(const JXJsonValue& json, JXJsonArray& value);
template <typename Block>
std::string read(const JXJsonValue& json, std::shared_ptr<Block>& value) {
  if (isNull(json)) {
    value.reset();
    return {};
  }
  if (json.kind() != JXJsonValue::Kind::Object) return "must be an object";
  const std::shared_ptr<Block> block = Block::init();
  std::string error = readBlock(json.object(), *block, Block::fields());
  if (!error.empty()) return "is invalid: " + error;
  value = block;
  return {};
}
template <typename Block>
std::string read(const JXJsonValue& json, JXList<std::shared_ptr<Block>>& value) {
  if (isNull(json)) {
    value = nullptr;
    return {};
  }
  if (json.kind() != JXJsonValue::Kind::Array) return "must be an array";
  JXList<std::shared_ptr<Block>> items;
  for (const JXJsonValue& element : json.array().values()) {
    std::shared_ptr<Block> item;
    if (!isNull(element)) {
      if (element.kind() != JXJsonValue::Kind::Object) return "must contain only items";
      item = Block::init();
      std::string error = readBlock(element.object(), *item, Block::fields());
      if (!error.empty()) return "contains an invalid item: " + error;
    }
    items.append(item);
  }
  value = items;
  return {};
}
/// Reads the enumerator's name. Rejects null.
JX_API std::string readEnumValue(const JXJsonValue& json, const JXEnumStrings& strings, int& value);
/// @}

/// Returns a copy of the value as JSON that `read` accepts; absent for null and for a NaN amount.
/// An item or a product is an object of its properties. It contains JSON null for a property that
/// is null but has another initial value.
/// @{
JX_API JXJsonValue toJson(const JXString& value);
JX_API JXJsonValue toJson(const std::optional<JXDecimal>& value);
JX_API JXJsonValue toJson(bool value);
JX_API JXJsonValue toJson(const JXList<JXString>& value);
JX_API JXJsonValue toJson(const JXJsonArray& value);
template <typename Block,
          typename = std::enable_if_t<std::is_base_of_v<JXAdditionalProperties, Block>>>
JXJsonValue toJson(const Block& block) {
  return blockToJson(block, Block::fields());
}
template <typename Block>
JXJsonValue toJson(const std::shared_ptr<Block>& value) {
  return value ? toJson(*value) : JXJsonValue();
}
template <typename Block>
JXJsonValue toJson(const JXList<std::shared_ptr<Block>>& value) {
  if (!value.isPresent()) return {};
  JXJsonArray array;
  for (const std::shared_ptr<Block>& item : value)
    array.append(item ? toJson(*item) : JXJsonValue::null());
  return array;
}
/// @}

}  // namespace fieldvalue
}  // namespace jx
