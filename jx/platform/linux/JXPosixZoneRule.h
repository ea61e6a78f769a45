// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// The first part of a POSIX time zone rule such as "CET-1CEST,M3.5.0,M10.5.0/3".
struct JXPosixZoneRule {
  std::string letters;         ///< "CET"; without the angle brackets of "<+03>-3"
  int offsetSeconds = 0;       ///< positive west of Greenwich, as in the rule
  bool hasSummerTime = false;  ///< something follows the offset
};

/// Parses a rule; returns nothing if `text` is not a rule.
std::optional<JXPosixZoneRule> parsePosixZoneRule(std::string_view text);

}  // namespace jx
