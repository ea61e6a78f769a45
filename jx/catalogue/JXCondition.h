// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The state of a field's value, independent of its type.
struct JX_API JXFieldState {
  bool isPresent = false;         ///< not null; a NaN amount counts as null
  bool isNonEmptyString = false;  ///< a string of at least one character
  bool hasEntries = false;        ///< a list of at least one element

  /// Returns the state of a field from its JSON: the type of the value and, for a string or an
  /// array, its size.
  static JXFieldState ofJson(JXJsonValue::Kind kind, std::size_t size);
};

/// A condition that an event must meet to be valid. It identifies fields by their JSON key, so that
/// the same condition validates an event and its JSON.
struct JX_API JXCondition {
  /// The requirement for the field.
  enum class Kind {
    Never,           ///< a base class: its events are never valid
    NonEmptyString,  ///< a string of at least one character
    Present,         ///< not null; zero and an empty list are present, NaN is not
    NonEmptyList,    ///< a list of at least one element
    Together,        ///< a present field and a non-empty string: both or neither
  };

  /// The requirement.
  Kind kind = Kind::Never;
  /// The JSON key of the field.
  std::string_view key;
  std::string_view otherKey;  ///< Together only: the key of the string
  /// Event names that the condition applies to; empty: all names.
  std::vector<std::string_view> onlyFor;
  /// Event names that the condition does not apply to.
  std::vector<std::string_view> exceptFor;

  /// Returns true if the condition applies to an event of this name.
  bool appliesTo(std::string_view eventName) const;
  /// Returns true if the fields meet the condition: the one under `key` and, for Together, the one
  /// under `otherKey`.
  bool holds(const JXFieldState& ofKey, const JXFieldState& ofOtherKey) const;
};

/// Returns a condition that no event meets.
JX_API JXCondition neverValid();
/// Requires a string of at least one character.
JX_API JXCondition nonEmptyString(std::string_view key);
/// Requires a value. Zero and an empty list are values; null and a NaN amount are not.
JX_API JXCondition present(std::string_view key);
/// Requires a list of at least one element.
JX_API JXCondition nonEmptyList(std::string_view key);
/// Requires the field and a non-empty string under `stringKey`, or neither of the two.
JX_API JXCondition together(std::string_view key, std::string_view stringKey);
/// Restricts the condition to these event names.
JX_API JXCondition onlyFor(JXCondition condition, std::vector<std::string_view> eventNames);
/// Exempts these event names from the condition.
JX_API JXCondition exceptFor(JXCondition condition, std::vector<std::string_view> eventNames);

}  // namespace jx
