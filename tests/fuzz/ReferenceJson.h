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

/// A JSON value as RapidJSON reads it, numbers as they are spelt.
struct ReferenceValue {
  JXJsonValue::Kind kind = JXJsonValue::Kind::Absent;
  bool truth = false;
  std::string text;                      ///< of a string, and of a number
  std::vector<ReferenceMember> members;  ///< of an array without keys
};

struct ReferenceMember {
  std::string key;
  ReferenceValue value;
};

struct ReferenceReading {
  bool isJson = false;
  /// RapidJSON refuses a number beyond a double; the library does not, so nothing can be said.
  bool isUndecided = false;
  /// An escape gives half of a surrogate pair, which RapidJSON lets through.
  bool hasLoneSurrogate = false;
  std::size_t depth = 0;
  bool repeatsKey = false;
  /// A number's exponent would make it longer than the library writes out.
  bool hasEndlessNumber = false;
  ReferenceValue value;
};

/// Reads strictly: UTF-8 only, nothing behind the value, no byte order mark.
ReferenceReading readReference(std::string_view text);

/// The number written without an exponent and with every digit that it was given.
std::string plainDigits(std::string_view number);

/// True when the library's value says the same.
bool isSame(const ReferenceValue& wanted, const JXJsonValue& found);

}  // namespace jx::fuzz
