// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <vector>

namespace jx::bench {

using Clock = std::chrono::steady_clock;

/// The durations of many calls.
class Samples {
 public:
  void reserve(std::size_t count) { nanoseconds_.reserve(count); }
  void add(Clock::duration time) {
    nanoseconds_.push_back(std::chrono::duration_cast<std::chrono::nanoseconds>(time).count());
  }

  /// Adds all samples of `other`.
  void add(const Samples& other) {
    nanoseconds_.insert(nanoseconds_.end(), other.nanoseconds_.begin(), other.nanoseconds_.end());
  }

  /// Returns the quantile `part` in microseconds: 0.5 is the median, 1 the longest. Returns 0 if
  /// there are no samples.
  double at(double part) {
    if (nanoseconds_.empty()) return 0;
    const auto last = static_cast<double>(nanoseconds_.size() - 1);
    const auto place = nanoseconds_.begin() + static_cast<std::ptrdiff_t>(part * last + 0.5);
    std::nth_element(nanoseconds_.begin(), place, nanoseconds_.end());
    return static_cast<double>(*place) / 1'000;
  }

 private:
  std::vector<std::int64_t> nanoseconds_;
};

}  // namespace jx::bench
