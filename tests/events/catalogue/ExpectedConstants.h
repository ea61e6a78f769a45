// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace jx::test {

/// An exported text constant: its name in the source, and its text.
struct ExpectedText {
  std::string_view constant;
  std::string_view text;
};

struct ExpectedMember {
  int value;
  std::string_view member;
  std::string_view text;
};

struct ExpectedEnumeration {
  std::string_view name;
  std::vector<ExpectedMember> members;
};

/// The constants that name keys of events, items, products, lifecycle, application and video.
const std::vector<ExpectedText>& expectedKeyConstants();
const std::vector<ExpectedText>& expectedPaymentMethods();
const std::vector<ExpectedText>& expectedPurchaseStatuses();
const std::vector<ExpectedEnumeration>& expectedEnumerations();

}  // namespace jx::test
