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

/// The texts of an enumeration and the names of its members, both indexed by its values. Refers to
/// the arrays, which must be constants.
struct JX_API JXEnumStrings {
  /// No texts at all.
  constexpr JXEnumStrings() = default;
  /// Refers to both arrays, which are as long as each other.
  template <std::size_t N>
  constexpr JXEnumStrings(const std::array<std::string_view, N>& stringOfEach,
                          const std::array<std::string_view, N>& nameOfEach)
      : texts(stringOfEach.data()), members(nameOfEach.data()), count(N) {}

  const std::string_view* texts = nullptr;    ///< what JSON says: "mid-roll"
  const std::string_view* members = nullptr;  ///< the name behind the prefix: "MID_ROLL"
  /// How many values the enumeration has.
  std::size_t count = 0;

  /// Absent for a value outside the enumeration: nothing is read out of bounds.
  JXString stringOf(int value) const {
    const bool isInside = value >= 0 && static_cast<std::size_t>(value) < count;
    return isInside ? JXString(texts[value]) : JXString();
  }
  /// What JSON says for each value, in order.
  std::vector<std::string_view> allStrings() const { return {texts, texts + count}; }
  /// The member's name for each value, in order.
  std::vector<std::string_view> allEnumerators() const { return {members, members + count}; }
};

/// What a field holds, and so how it stands in JSON.
enum class JXFieldKind {
  String,           ///< a string
  Number,           ///< an exact decimal, written as a number
  Boolean,          ///< a Boolean, always written
  Strings,          ///< a list of strings, written as an array
  NumberedStrings,  ///< a list of strings, each written under a numbered key, from 1
  Values,           ///< a list of any values, written as an array
  Enumeration,      ///< an enumeration, written as the string of its value
  Items,            ///< a list of items, written as an array of objects
  Product,          ///< a product, written as an object
};

/// One field of a class: its JSON key and its property name, in one place.
struct JX_API JXFieldInfo {
  /// The JSON key.
  std::string_view key;
  /// The property's name, as its accessors have it.
  std::string_view property;
  /// What the field holds.
  JXFieldKind kind = JXFieldKind::String;
  JXEnumStrings enumStrings;  ///< of a Choice; else empty
  /// The same property was written before, by this table or by a base: it stands in its first place
  /// and is not written again.
  bool isDuplicate = false;
};

/// The fields that a class writes, in writing order, seen without the class's type. Whatever
/// needs the fields (the JSON writer, the replay program, the collector's checks, the catalogue)
/// reads them here. Immutable; objects that are handed in must be of the table's class.
class JX_API JXFieldTable {
 public:
  virtual ~JXFieldTable() = default;

  /// The fields in writing order; valid as long as the table.
  const std::vector<JXFieldInfo>& fields() const { return fields_; }
  /// Position of the field with this property name; `npos` when there is none.
  std::size_t findProperty(std::string_view property) const;
  /// The same by JSON key.
  std::size_t findKey(std::string_view key) const;
  /// No position.
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  /// Tells the sink every field, in order.
  virtual void write(const JXAdditionalProperties& object, JXJsonSink& sink) const = 0;
  /// True when writing an object may set this key.
  bool mayWrite(std::string_view key) const;
  /// What can be said of the field at this position; `field` is below the number of fields.
  virtual JXFieldState state(const JXAdditionalProperties& object, std::size_t field) const = 0;
  /// The same by JSON key; of nothing when no field has it.
  JXFieldState stateOfKey(const JXAdditionalProperties& object, std::string_view key) const;
  /// True when the object meets every one of the conditions.
  bool meetsAll(const JXAdditionalProperties& object,
                const std::vector<JXCondition>& conditions) const;
  /// Gives a field the value; JSON's null sets it to absent, which a flag and an enumeration cannot
  /// be. Returns what is wrong with the value and leaves the object unchanged; empty when nothing
  /// is wrong.
  virtual std::string set(JXAdditionalProperties& object, std::size_t field,
                          const JXJsonValue& value) const = 0;

 protected:
  std::vector<JXFieldInfo> fields_;
};

}  // namespace jx
