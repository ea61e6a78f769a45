// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

#include "jx/core/transfer/JXRetryAfter.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

using std::chrono::milliseconds;
using Delay = std::optional<milliseconds>;

constexpr std::int64_t kTenYearsMs = 10LL * 365 * 24 * 60 * 60 * 1'000;

std::string textOf(const Delay& delay) {
  return delay ? std::to_string(delay->count()) + " ms" : "nothing";
}

void requireDelay(std::string_view text, std::int64_t nowMs, const Delay& expected) {
  const Delay found = parseRetryAfter(text, nowMs);
  require(found == expected, "the delay is the requested one", textOf(found),
          textOf(expected) + " for " + std::string(text));
}

void checkAnyText(std::string_view text, std::int64_t nowMs) {
  const Delay delay = parseRetryAfter(text, nowMs);
  if (delay) {
    require(delay->count() >= 0, "no delay is negative", textOf(delay), text);
    require(delay->count() <= kTenYearsMs, "no delay is longer than ten years", textOf(delay),
            text);
  }
  requireDelay("\t " + std::string(text) + " \r\n", nowMs, delay);
  // Exactly a number of seconds consists of digits only.
  const bool isNumber = !text.empty() && std::all_of(text.begin(), text.end(),
                                                     [](char c) { return c >= '0' && c <= '9'; });
  if (!isNumber) return;
  const std::string digits(text.substr(std::min(text.find_first_not_of('0'), text.size() - 1)));
  const bool isShort = digits.size() <= 12;
  const std::int64_t ms = isShort ? std::stoll(digits) * 1'000 : kTenYearsMs;
  requireDelay(text, nowMs, milliseconds(std::min(ms, kTenYearsMs)));
}

// Returns the delay until a point in time in seconds, at least 0.
Delay until(std::int64_t second, std::int64_t nowMs) {
  return milliseconds(std::clamp(second * 1'000 - nowMs, std::int64_t{0}, kTenYearsMs));
}

// Tests the three date formats of HTTP, and a date with an invalid hour.
void checkDate(Input input) {
  // From the year 0 to the year 9999.
  constexpr std::int64_t kFirst = -62'167'219'200;
  constexpr std::int64_t kSpan = 315'569'520'000;
  const auto second = static_cast<std::time_t>(
      kFirst + static_cast<std::int64_t>(input.number(8) % std::uint64_t{kSpan}));
  // The current time is up to thirty years before or ten years after the date, so that the delay
  // may be 0, the maximum or in between.
  const std::int64_t nowMs =
      second * 1'000 + kTenYearsMs - static_cast<std::int64_t>(input.number(8) % (4 * kTenYearsMs));
  std::tm parts{};
  require(::gmtime_r(&second, &parts) != nullptr && ::timegm(&parts) == second,
          "the system can convert the date");
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "%a, %d %b %Y %H:%M:%S GMT", &parts);
  // strftime writes a year before 1000 with fewer digits.
  std::array<char, 16> year{};
  std::snprintf(year.data(), year.size(), "%04d", parts.tm_year + 1900);
  std::string date(text.data());
  date.replace(12, date.size() - 12 - 13, year.data());
  requireDelay(date, nowMs, until(second, nowMs));
  std::strftime(text.data(), text.size(), "%a %b %e %H:%M:%S ", &parts);
  requireDelay(std::string(text.data()) + year.data(), nowMs, until(second, nowMs));
  if (parts.tm_year >= 100 && parts.tm_year < 200) {
    std::strftime(text.data(), text.size(), "%A, %d-%b-%y %H:%M:%S GMT", &parts);
    requireDelay(text.data(), nowMs, until(second, nowMs));
  }
  // With the date of a response, the clock of the device does not matter.
  std::array<char, 64> sent{};
  std::tm sentParts{};
  const std::time_t sentAt = 784'111'777;
  ::gmtime_r(&sentAt, &sentParts);
  std::strftime(sent.data(), sent.size(), "%a, %d %b %Y %H:%M:%S GMT", &sentParts);
  const Delay certain = requestedDelay(date, sent.data(), nowMs, milliseconds(0));
  const Delay expected = until(second, std::int64_t{sentAt} * 1'000);
  require(certain == expected, "a date is compared with that of the response", textOf(certain),
          textOf(expected) + " for " + date);
  const Delay uncertain = requestedDelay(date, "", nowMs, milliseconds(7));
  require(uncertain && *uncertain <= milliseconds(7), "a delay by the device's clock is limited",
          textOf(uncertain), date);
  date.replace(17, 2, "24");
  requireDelay(date, nowMs, std::nullopt);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::Input input(data, size);
  if ((input.byte() & 1) == 0) {
    const auto nowMs = static_cast<std::int64_t>(input.number(8));
    jx::fuzz::checkAnyText(input.rest(), nowMs);
  } else {
    jx::fuzz::checkDate(input);
  }
  return 0;
}
