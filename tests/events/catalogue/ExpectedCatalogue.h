// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx::test {

// The expected event classes, written a second time by hand: only literals, without the library's
// key constants or tables, so that a typo on either side fails a test.

/// An enumerator, without its prefix, and its JSON string; listed in the order of the values.
struct ExpectedEnumerator {
  std::string_view name;
  std::string_view string;
};

struct ExpectedField {
  std::string_view kind;
  std::string_view key;
  std::string_view property;
  std::vector<ExpectedEnumerator> enumerators = {};
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
  std::string_view base = {};  ///< empty for the root class
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
