// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/events/JXCondition.h"
#include "jx/platform/JXApi.h"

namespace jx {

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

/// The type of a field, which determines its JSON form.
enum class JXFieldKind {
  String,           ///< a string
  Number,           ///< an exact decimal, written as a number; NaN is not written
  Boolean,          ///< a Boolean, always written
  Strings,          ///< a list of strings, written as an array
  NumberedStrings,  ///< a list of strings, each written under a numbered key, from 1
  Values,           ///< a list of any values, written as an array
  Enumeration,      ///< an enumeration, written as the string of its value
  Items,            ///< a list of items, written as an array of objects
  Product,          ///< a product, written as an object
};

/// One field of a class: JSON key, property name and type.
struct JX_API JXFieldInfo {
  /// The JSON key.
  std::string_view key;
  /// The property's name, as in its accessors.
  std::string_view property;
  /// The type of the field.
  JXFieldKind kind = JXFieldKind::String;
  JXEnumStrings enumStrings;  ///< Enumeration only; otherwise empty
  /// True if this table or a base's table lists the same property earlier. The field is written
  /// only once, at the position of its first listing.
  bool isDuplicate = false;
};

/// The fields that a class writes, in writing order, independent of the class's type. The JSON
/// writer, the replay program, the collector's validation and the catalogue all read this table.
/// Immutable. Objects passed to it must be of the table's class.
class JX_API JXFieldTable {
 public:
  virtual ~JXFieldTable() = default;

  /// Returns the fields in writing order; valid as long as the table.
  const std::vector<JXFieldInfo>& fields() const { return fields_; }
  /// Returns the position of the field with this property name; `npos` if there is none.
  std::size_t findProperty(std::string_view property) const;
  /// Returns the position of the field with this JSON key; `npos` if there is none.
  std::size_t findKey(std::string_view key) const;
  /// Marks a field that does not exist.
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  /// Writes the fields to the sink, in order, as `fieldvalue::write` does.
  virtual void write(const JXAdditionalProperties& object, JXJsonSink& sink) const = 0;
  /// Returns true if `write` may write this key.
  bool mayWrite(std::string_view key) const;
  /// Returns the state of the field at this position, which must be less than the number of fields.
  virtual JXFieldState state(const JXAdditionalProperties& object, std::size_t field) const = 0;
  /// Returns the state of the field with this JSON key; a null state if none has it.
  JXFieldState stateOfKey(const JXAdditionalProperties& object, std::string_view key) const;
  /// Returns true if the object meets all conditions.
  bool meetsAll(const JXAdditionalProperties& object,
                const std::vector<JXCondition>& conditions) const;
  /// Sets the field to `value`. JSON null sets it to null; Booleans and enumerations reject null.
  /// Returns an empty string on success. On error, returns a message such as "must be a string", to
  /// follow the field's name, and leaves the object unchanged.
  virtual std::string set(JXAdditionalProperties& object, std::size_t field,
                          const JXJsonValue& value) const = 0;
  /// Returns a copy of the value of the field, in the form that `set` accepts; absent if the field
  /// is null. A NaN amount and a value outside its enumeration count as null.
  virtual JXJsonValue get(const JXAdditionalProperties& object, std::size_t field) const = 0;

 protected:
  std::vector<JXFieldInfo> fields_;
};

}  // namespace jx
