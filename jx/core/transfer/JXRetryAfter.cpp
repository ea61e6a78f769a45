// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXRetryAfter.h"

#include <algorithm>
#include <cstddef>

#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

constexpr std::int64_t kMaxSeconds = std::int64_t{10} * 365 * 24 * 60 * 60;

std::string_view trimmed(std::string_view string) {
  const std::size_t first = string.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return string.substr(first, string.find_last_not_of(" \t\r\n") - first + 1);
}

// Parses a date piece by piece. `valid` stays false after the first invalid piece.
struct Cursor {
  std::string_view rest;
  bool valid = true;

  void literal(std::string_view expected) {
    valid = valid && rest.substr(0, expected.size()) == expected;
    if (valid) rest.remove_prefix(expected.size());
  }
  void dayName() {
    std::size_t length = 0;
    while (length < rest.size() && isAlpha(rest[length]))
      ++length;
    valid = valid && length >= 3;
    rest.remove_prefix(length);
  }
  int number(std::size_t digits) {
    int value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      valid = valid && i < rest.size() && isDigit(rest[i]);
      if (valid) value = value * 10 + (rest[i] - '0');
    }
    if (valid) rest.remove_prefix(digits);
    return value;
  }
  int month() {
    constexpr std::string_view kNames = "JanFebMarAprMayJunJulAugSepOctNovDec";
    const std::size_t at =
        rest.size() < 3 ? std::string_view::npos : kNames.find(rest.substr(0, 3));
    valid = valid && at != std::string_view::npos && at % 3 == 0;
    if (valid) rest.remove_prefix(3);
    return valid ? static_cast<int>(at / 3) + 1 : 1;
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

// Parses "Sun, 06 Nov 1994 08:49:37 GMT", also with dashes and a two-digit year.
bool readCommaDate(Cursor cursor, Date& date) {
  cursor.dayName();
  cursor.literal(", ");
  date.day = cursor.number(2);
  const bool isOldForm = !cursor.rest.empty() && cursor.rest.front() == '-';
  const std::string_view separator = isOldForm ? "-" : " ";
  cursor.literal(separator);
  date.month = cursor.month();
  cursor.literal(separator);
  // A two-digit year is in this century, because a Retry-After is in the near future.
  date.year = isOldForm ? 2000 + cursor.number(2) : cursor.number(4);
  cursor.literal(" ");
  readTime(cursor, date);
  cursor.literal(" GMT");
  return cursor.valid && cursor.rest.empty();
}

// Parses "Sun Nov  6 08:49:37 1994".
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
  return cursor.valid && cursor.rest.empty();
}

bool isPossible(const Date& date) {
  return date.day >= 1 && date.day <= 31 && date.hour < 24 && date.minute < 60 && date.second <= 60;
}

// Returns the days since the Unix epoch in the Gregorian calendar. Years begin in March here, so
// that the leap day is the last day of a year.
std::int64_t daysSinceEpoch(const Date& date) {
  const std::int64_t year = date.month > 2 ? date.year : date.year - 1;
  // January and February of the year 0 belong to the previous era.
  const std::int64_t era = year < 0 ? -1 : year / 400;
  const std::int64_t yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * ((date.month + 9) % 12) + 2) / 5 + date.day - 1;
  return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

std::int64_t secondsSinceEpoch(const Date& date) {
  return daysSinceEpoch(date) * 86'400 + date.hour * 3'600 + date.minute * 60 + date.second;
}

std::optional<std::chrono::milliseconds> fromSeconds(std::string_view digits) {
  std::int64_t seconds = 0;
  for (const char c : digits) {
    if (!isDigit(c)) return std::nullopt;
    seconds = std::min(seconds * 10 + (c - '0'), kMaxSeconds);
  }
  return std::chrono::seconds(seconds);
}

// Returns the time of a date in one of HTTP's three forms, in seconds since the Unix epoch.
std::optional<std::int64_t> parseDate(std::string_view value) {
  Date date;
  if (!readCommaDate(Cursor{value}, date) && !readAsctimeDate(Cursor{value}, date)) {
    return std::nullopt;
  }
  if (!isPossible(date)) return std::nullopt;
  return secondsSinceEpoch(date);
}

}  // namespace

std::optional<std::chrono::milliseconds> parseRetryAfter(std::string_view header,
                                                         std::int64_t nowWallMs) noexcept {
  const std::string_view value = trimmed(header);
  if (value.empty()) return std::nullopt;
  if (isDigit(value.front())) return fromSeconds(value);
  const std::optional<std::int64_t> at = parseDate(value);
  if (!at) return std::nullopt;
  // Compares seconds before subtracting, so that an extreme clock value cannot overflow.
  const std::int64_t now = nowWallMs / 1'000 - (nowWallMs % 1'000 < 0 ? 1 : 0);
  if (*at <= now) return std::chrono::milliseconds::zero();
  if (now < *at - kMaxSeconds) return std::chrono::seconds(kMaxSeconds);
  return std::chrono::milliseconds(*at * 1'000 - nowWallMs);
}

std::optional<std::chrono::milliseconds> requestedDelay(
    std::string_view retryAfter, std::string_view date, std::int64_t nowWallMs,
    std::chrono::milliseconds maxUncertain) noexcept {
  const std::optional<std::int64_t> sentAt = parseDate(trimmed(date));
  auto delay = parseRetryAfter(retryAfter, sentAt ? *sentAt * 1'000 : nowWallMs);
  const std::string_view value = trimmed(retryAfter);
  const bool isCertain = sentAt || value.empty() || isDigit(value.front());
  if (delay && !isCertain) delay = std::min(*delay, maxUncertain);
  return delay;
}

}  // namespace jx
