// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace jx {

/// The head of a POSIX time zone rule such as "CET-1CEST,M3.5.0,M10.5.0/3".
struct JXPosixZoneRule {
  std::string letters;         ///< "CET"; without the angle brackets of "<+03>-3"
  int offsetSeconds = 0;       ///< west of Greenwich is positive, as the rule writes it
  bool hasSummerTime = false;  ///< something follows the offset
};

/// Takes a rule apart; nothing for a text that is no rule.
std::optional<JXPosixZoneRule> parsePosixZoneRule(std::string_view text);

}  // namespace jx
