// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Report.h"

#include <algorithm>
#include <cstdio>

namespace jx::soak {

void Report::say(const std::string& text) const {
  std::printf("%s: %s\n", name_.c_str(), text.c_str());
  std::fflush(stdout);
}

void Report::promise(bool passed, const std::string& text) {
  say((passed ? "passed: " : "FAILED: ") + text);
  if (!passed) ++failed_;
}

std::string spread(std::vector<double> values, const std::string& unit) {
  if (values.empty()) return "no values";
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  const double median =
      values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
  return "minimum " + rounded(values.front(), 3) + ", median " + rounded(median, 3) + ", maximum " +
         rounded(values.back(), 3) + " " + unit;
}

std::string rounded(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

}  // namespace jx::soak
