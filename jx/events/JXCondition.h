// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "jx/platform/JXApi.h"

namespace jx {

/// What can be asked of a field's value without knowing its type.
struct JX_API JXFieldState {
  bool isPresent = false;         ///< not absent
  bool isNonEmptyString = false;  ///< a text of at least one character
  bool hasEntries = false;        ///< a list of at least one element
};

/// What an event must satisfy to count as complete, told by the JSON key of the field, so that the
/// event itself and its JSON can be judged by the same line.
struct JX_API JXCondition {
  /// What is asked of the field.
  enum class Kind {
    Never,           ///< a base class: no event of it is complete
    NonEmptyString,  ///< a text of at least one character
    Present,         ///< not absent; zero and an empty list are present
    NonEmptyList,    ///< a list of at least one element
    Together,        ///< a present field and a usable text, both or neither
  };

  /// What is asked.
  Kind kind = Kind::Never;
  /// The JSON key of the field that is asked.
  std::string_view key;
  std::string_view otherKey;  ///< of Together: the key of the text
  /// Event names that the condition is for; empty: all names.
  std::vector<std::string_view> onlyFor;
  /// Event names that the condition is not for.
  std::vector<std::string_view> exceptFor;

  /// True when the condition counts for an event of this name.
  bool appliesTo(std::string_view eventName) const;
  /// Judges by the field under `key` and, of Together, the one under `otherKey`.
  bool holds(const JXFieldState& ofKey, const JXFieldState& ofOtherKey) const;
};

/// A condition that nothing meets.
JX_API JXCondition neverComplete();
/// The field is a text of at least one character.
JX_API JXCondition nonEmptyString(std::string_view key);
/// The field is there.
JX_API JXCondition present(std::string_view key);
/// The list holds at least one element.
JX_API JXCondition nonEmptyList(std::string_view key);
/// The field and the text are both given, or neither is.
JX_API JXCondition together(std::string_view key, std::string_view stringKey);
/// The same condition for these event names alone.
JX_API JXCondition onlyFor(JXCondition condition, std::vector<std::string_view> eventNames);
/// The same condition for all event names but these.
JX_API JXCondition exceptFor(JXCondition condition, std::vector<std::string_view> eventNames);

}  // namespace jx
