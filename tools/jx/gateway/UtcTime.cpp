// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/UtcTime.h"

#include <chrono>
#include <cstdio>

namespace jx {

std::string utcTime(std::int64_t epochMs) {
  const std::chrono::sys_time<std::chrono::milliseconds> time{std::chrono::milliseconds(epochMs)};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  char text[64];
  std::snprintf(
      text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
      static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
  return text;
}

}  // namespace jx
