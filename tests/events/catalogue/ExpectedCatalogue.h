// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx::test {

// What the event classes must be, typed a second time: by hand, in literals only, and without
// the library's key constants or tables, so that a slip of the pen on one side shows.

/// The members of an enumeration (behind its prefix) with their texts, in the order of the values.
struct ExpectedChoice {
  std::string_view member;
  std::string_view text;
};

struct ExpectedField {
  std::string_view kind;
  std::string_view key;
  std::string_view property;
  std::vector<ExpectedChoice> choices = {};
};

struct ExpectedCondition {
  std::string_view kind;
  std::string_view key = {};
  std::string_view otherKey = {};
  std::vector<std::string_view> onlyFor = {};
  std::vector<std::string_view> exceptFor = {};
};

struct ExpectedClass {
  std::string_view name;
  std::string_view base = {};  ///< empty for the class at the root
  std::vector<std::string_view> eventNames = {};
  std::vector<std::string_view> modes = {};
  std::vector<ExpectedField> written = {};
  std::vector<ExpectedField> unwritten = {};
  std::vector<ExpectedCondition> conditions = {};
};

const std::vector<ExpectedClass>& expectedClasses();
const std::vector<ExpectedField>& expectedItemFields();
const std::vector<ExpectedField>& expectedProductFields();

}  // namespace jx::test
