// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryAfter.h"

#include <algorithm>
#include <cstddef>

namespace jx {
namespace {

constexpr std::int64_t kLongestSeconds = std::int64_t{10} * 365 * 24 * 60 * 60;

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Reads a date piece by piece; once a piece is not what it should be, `good` stays false.
struct Cursor {
  std::string_view rest;
  bool good = true;

  void literal(std::string_view expected) {
    good = good && rest.substr(0, expected.size()) == expected;
    if (good) rest.remove_prefix(expected.size());
  }
  void dayName() {
    std::size_t length = 0;
    while (length < rest.size() && isLetter(rest[length]))
      ++length;
    good = good && length >= 3;
    rest.remove_prefix(length);
  }
  int number(std::size_t digits) {
    int value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      good = good && i < rest.size() && isDigit(rest[i]);
      if (good) value = value * 10 + (rest[i] - '0');
    }
    if (good) rest.remove_prefix(digits);
    return value;
  }
  int month() {
    constexpr std::string_view kNames = "JanFebMarAprMayJunJulAugSepOctNovDec";
    const std::size_t at =
        rest.size() < 3 ? std::string_view::npos : kNames.find(rest.substr(0, 3));
    good = good && at != std::string_view::npos && at % 3 == 0;
    if (good) rest.remove_prefix(3);
    return good ? static_cast<int>(at / 3) + 1 : 1;
  }
};

struct Date {
  int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

void readTime(Cursor& cursor, Date& date) {
  date.hour = cursor.number(2);
  cursor.literal(":");
  date.minute = cursor.number(2);
  cursor.literal(":");
  date.second = cursor.number(2);
}

// "Sun, 06 Nov 1994 08:49:37 GMT", or with dashes and two digits of the year.
bool readCommaDate(Cursor cursor, Date& date) {
  cursor.dayName();
  cursor.literal(", ");
  date.day = cursor.number(2);
  const bool isOldForm = !cursor.rest.empty() && cursor.rest.front() == '-';
  const std::string_view separator = isOldForm ? "-" : " ";
  cursor.literal(separator);
  date.month = cursor.month();
  cursor.literal(separator);
  // Two digits are a year of this century: a Retry-After is about the near future.
  date.year = isOldForm ? 2000 + cursor.number(2) : cursor.number(4);
  cursor.literal(" ");
  readTime(cursor, date);
  cursor.literal(" GMT");
  return cursor.good && cursor.rest.empty();
}

// "Sun Nov  6 08:49:37 1994"
bool readAsctimeDate(Cursor cursor, Date& date) {
  cursor.dayName();
  cursor.literal(" ");
  date.month = cursor.month();
  cursor.literal(" ");
  if (!cursor.rest.empty() && cursor.rest.front() == ' ') {
    cursor.literal(" ");
    date.day = cursor.number(1);
  } else {
    date.day = cursor.number(2);
  }
  cursor.literal(" ");
  readTime(cursor, date);
  cursor.literal(" ");
  date.year = cursor.number(4);
  return cursor.good && cursor.rest.empty();
}

bool isPossible(const Date& date) {
  return date.day >= 1 && date.day <= 31 && date.hour < 24 && date.minute < 60 && date.second <= 60;
}

// Days since the Unix epoch in the Gregorian calendar, with years that begin in March so that the
// leap day is a year's last one.
std::int64_t daysSinceEpoch(const Date& date) {
  const std::int64_t year = date.month > 2 ? date.year : date.year - 1;
  // January and February of the year 0 belong to the era before.
  const std::int64_t era = year < 0 ? -1 : year / 400;
  const std::int64_t yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * ((date.month + 9) % 12) + 2) / 5 + date.day - 1;
  return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

std::int64_t secondsSinceEpoch(const Date& date) {
  return daysSinceEpoch(date) * 86'400 + date.hour * 3'600 + date.minute * 60 + date.second;
}

std::optional<std::chrono::milliseconds> fromSeconds(std::string_view text) {
  std::int64_t seconds = 0;
  for (const char c : text) {
    if (!isDigit(c)) return std::nullopt;
    seconds = std::min(seconds * 10 + (c - '0'), kLongestSeconds);
  }
  return std::chrono::seconds(seconds);
}

}  // namespace

std::optional<std::chrono::milliseconds> parseRetryAfter(std::string_view text,
                                                         std::int64_t nowWallMs) noexcept {
  const std::string_view value = trimmed(text);
  if (value.empty()) return std::nullopt;
  if (isDigit(value.front())) return fromSeconds(value);

  Date date;
  if (!readCommaDate(Cursor{value}, date) && !readAsctimeDate(Cursor{value}, date)) {
    return std::nullopt;
  }
  if (!isPossible(date)) return std::nullopt;
  // Compared in seconds before the difference is taken, so that a clock far off cannot overflow.
  const std::int64_t at = secondsSinceEpoch(date);
  const std::int64_t now = nowWallMs / 1'000 - (nowWallMs % 1'000 < 0 ? 1 : 0);
  if (at <= now) return std::chrono::milliseconds::zero();
  if (now < at - kLongestSeconds) return std::chrono::seconds(kLongestSeconds);
  return std::chrono::milliseconds(at * 1'000 - nowWallMs);
}

}  // namespace jx
