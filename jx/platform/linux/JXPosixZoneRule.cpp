// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXPosixZoneRule.h"

#include <algorithm>

#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

// Removes "CET" or "<+03>" from the front of `text` and returns it; empty if there is neither.
std::string consumeLetters(std::string_view& text) {
  const bool isQuoted = !text.empty() && text.front() == '<';
  const std::size_t end =
      isQuoted ? text.find('>')
               : static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isAlpha) -
                                          text.begin());
  if (end == std::string_view::npos) return {};
  std::string letters(isQuoted ? text.substr(1, end - 1) : text.substr(0, end));
  text.remove_prefix(isQuoted ? end + 1 : end);
  return letters.size() >= 3 && letters.size() <= 16 ? letters : std::string();
}

// Removes one or two digits from the front of `text` and returns their value; -1 if there is none.
int consumeNumber(std::string_view& text) {
  int number = -1;
  for (int digits = 0; digits < 2 && !text.empty() && isDigit(text.front()); ++digits) {
    number = std::max(number, 0) * 10 + (text.front() - '0');
    text.remove_prefix(1);
  }
  return number;
}

}  // namespace

std::optional<JXPosixZoneRule> parsePosixZoneRule(std::string_view text) {
  JXPosixZoneRule rule;
  rule.letters = consumeLetters(text);
  if (rule.letters.empty() || text.empty()) return std::nullopt;
  int sign = 1;
  if (text.front() == '-' || text.front() == '+') {
    sign = text.front() == '-' ? -1 : 1;
    text.remove_prefix(1);
  }
  const int hours = consumeNumber(text);
  if (hours < 0 || hours > 24) return std::nullopt;
  rule.offsetSeconds = hours * 3600;
  for (int unit = 60; unit >= 1 && !text.empty() && text.front() == ':'; unit /= 60) {
    text.remove_prefix(1);
    const int number = consumeNumber(text);
    if (number < 0 || number > 59) return std::nullopt;
    rule.offsetSeconds += number * unit;
  }
  rule.offsetSeconds *= sign;
  rule.hasSummerTime = !text.empty();
  if (rule.hasSummerTime && consumeLetters(text).empty()) return std::nullopt;
  return rule;
}

}  // namespace jx
