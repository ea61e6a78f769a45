// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/transfer/JXHttpResponseParser.h"
#include "jx/core/transfer/JXRetryAfter.h"
#include "jx/core/transfer/JXRetryPolicy.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

using std::chrono::milliseconds;

void requireSame(std::string_view found, std::string_view expected, const char* property) {
  require(found == expected, property, found, expected);
}

// The delay after a response is within its limits, whatever the header section contains.
void checkDelay(const JXHttpResponseParser& parser, std::int64_t nowMs) {
  constexpr milliseconds kMaxUncertain{300'000};
  constexpr milliseconds kTenYears{10LL * 365 * 24 * 60 * 60 * 1'000};
  const auto delay = requestedDelay(parser.retryAfter(), parser.date(), nowMs, kMaxUncertain);
  if (!delay) return;
  require(*delay >= milliseconds(0) && *delay <= kTenYears, "a delay is within ten years",
          std::to_string(delay->count()), parser.retryAfter());
  // The clock of the device decides only without a date of the server, and then little.
  const auto later = requestedDelay(parser.retryAfter(), parser.date(), nowMs ^ 1, kMaxUncertain);
  require(later.has_value(), "the clock does not make a header invalid");
  require(later == delay || (*delay <= kMaxUncertain && *later <= kMaxUncertain),
          "a delay that depends on the clock is short", std::to_string(delay->count()),
          parser.retryAfter());
}

void checkStatus(int status) {
  require(status == 0 || (status >= 200 && status <= 999), "a final status has three digits",
          std::to_string(status), {});
  const JXResponseClass found = classifyResponse({status, false});
  require((found == JXResponseClass::Delivered) == (status >= 200 && status < 300),
          "exactly 2xx is delivered", std::to_string(status), {});
  require(status != 0 || found == JXResponseClass::Retry, "no response is retried");
}

// Feeds any bytes line by line, as they arrive.
void checkAnyBytes(std::string_view text, std::int64_t nowMs) {
  JXHttpResponseParser parser;
  std::size_t total = 0;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n') + 1);
    const std::string_view next = line.empty() ? text : line;
    text.remove_prefix(next.size());
    const int status = parser.status();
    const std::string retryAfter = parser.retryAfter();
    total += next.size();
    require(parser.readHeader(next) == (total <= JXHttpResponseParser::kMaxBytes),
            "a header section of any length up to the limit is read");
    if (status == 0) continue;
    require(parser.status() == status, "the first final response counts");
    requireSame(parser.retryAfter(), retryAfter, "a trailer changes nothing");
  }
  checkStatus(parser.status());
  for (const std::string& value : {parser.retryAfter(), parser.date()}) {
    require(value.find('\n') == std::string::npos, "a value is one line", value, {});
    require(value.empty() || (value.front() != ' ' && value.back() != ' '),
            "a value has no blanks around it", value, {});
  }
  checkDelay(parser, nowMs);
}

// Writes header names in any case and with any blanks around the value.
std::string header(std::string_view name, std::string_view value, std::uint8_t form) {
  std::string line;
  for (const char c : name)
    line += (form & 1) != 0 && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  line += (form & 2) != 0 ? ":" : ": \t";
  line.append(value).append((form & 4) != 0 ? " \t" : "").append((form & 8) != 0 ? "\n" : "\r\n");
  return line;
}

// Writes responses of which the expected result is known: interim ones and a final one.
void checkResponses(Input input, std::int64_t nowMs) {
  constexpr std::array<std::string_view, 7> kValues{"120",
                                                    "-1",
                                                    "99999999999999999999",
                                                    "Sun, 06 Nov 1994 08:49:37 GMT",
                                                    "Sun, 06 Nov 2094 08:49:37 GMT",
                                                    "soon",
                                                    ""};
  constexpr std::array<std::string_view, 4> kNames{"retry-after", "date", "x-retry-after", "dates"};
  const std::array<int, 7> statuses{100, 103, 199, 200, 429, 503, 999};
  JXHttpResponseParser parser;
  int expected = 0;
  std::array<std::string, kNames.size()> values;
  while (!input.isEmpty() && expected == 0) {
    const int status = statuses[input.byte() % statuses.size()];
    values.fill({});
    std::vector<std::string> lines{"HTTP/1.1 " + std::to_string(status) + " Reason\r\n"};
    for (std::size_t left = input.byte() % 6u; left != 0; --left) {
      const std::size_t name = input.byte() % kNames.size();
      values[name] = kValues[input.byte() % kValues.size()];
      lines.push_back(header(kNames[name], values[name], input.byte()));
    }
    lines.emplace_back("\r\n");
    for (const std::string& line : lines)
      require(parser.readHeader(line), "a short header section is read");
    if (status >= 200) expected = status;
    require(parser.status() == expected, "the status is that of the first final response",
            std::to_string(parser.status()), std::to_string(expected));
    requireSame(parser.retryAfter(), values[0], "Retry-After is that of the last response");
    requireSame(parser.date(), values[1], "Date is that of the last response");
  }
  checkStatus(parser.status());
  checkDelay(parser, nowMs);
}

// A server cannot make the library read without end.
void checkLimit(Input input) {
  JXHttpResponseParser parser;
  std::size_t total = 0;
  while (!input.isEmpty()) {
    const std::size_t bytes = input.number(2);
    const bool isWithin = (input.byte() & 1) != 0 ? parser.readBody(bytes)
                                                  : parser.readHeader(std::string(bytes, 'x'));
    total += bytes;
    require(isWithin == (total <= JXHttpResponseParser::kMaxBytes),
            "a response of any length up to the limit is read");
  }
}

void check(Input input) {
  const std::uint8_t kind = input.byte() % 3u;
  if (kind == 2) return checkLimit(input);
  const auto nowMs = static_cast<std::int64_t>(input.number(8));
  if (kind == 0) return checkAnyBytes(input.rest(), nowMs);
  checkResponses(input, nowMs);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::check({data, size});
  return 0;
}
