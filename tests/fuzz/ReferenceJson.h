// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/json/JXJsonValue.h"

namespace jx::fuzz {

struct ReferenceMember;

/// A JSON value as read by RapidJSON, with unmodified number strings.
struct ReferenceValue {
  JXJsonValue::Kind kind = JXJsonValue::Kind::Absent;
  bool truth = false;
  std::string text;                      ///< of a string or a number
  std::vector<ReferenceMember> members;  ///< of an object; of an array, with empty keys
};

struct ReferenceMember {
  std::string key;
  ReferenceValue value;
};

struct ReferenceReading {
  bool isJson = false;
  /// True if RapidJSON rejected a number that exceeds a double. The library accepts it, so the
  /// result cannot be compared.
  bool isUndecided = false;
  /// True if an escape is half of a surrogate pair, which RapidJSON accepts.
  bool hasLoneSurrogate = false;
  std::size_t depth = 0;
  bool repeatsKey = false;
  /// True if the plain digits of a number exceed the maximum length of the library.
  bool hasEndlessNumber = false;
  ReferenceValue value;
};

/// Reads strict JSON: UTF-8 only, nothing after the value, no byte order mark.
ReferenceReading readReference(std::string_view text);

/// Returns the number without an exponent and with all its digits.
std::string plainDigits(std::string_view number);

/// Returns whether the library's value equals the reference value.
bool isSame(const ReferenceValue& expected, const JXJsonValue& found);

}  // namespace jx::fuzz
