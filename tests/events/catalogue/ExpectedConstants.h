// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx::test {

/// An exported string constant: its name in the source, and its value.
struct ExpectedString {
  std::string_view constant;
  std::string_view string;
};

struct ExpectedEnumeratorValue {
  int value;
  std::string_view enumerator;
  std::string_view string;
};

struct ExpectedEnumeration {
  std::string_view name;
  std::vector<ExpectedEnumeratorValue> enumerators;
};

/// The key constants of events, items, products, lifecycle, application and video.
const std::vector<ExpectedString>& expectedKeyConstants();
const std::vector<ExpectedString>& expectedPaymentMethods();
const std::vector<ExpectedString>& expectedPurchaseStatuses();
const std::vector<ExpectedEnumeration>& expectedEnumerations();

}  // namespace jx::test
