// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace jx::simulation {

/// A sequence of random numbers that depends on nothing but its seed, on every machine.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t bits = state_;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
    return bits ^ (bits >> 31);
  }
  /// Returns a number from 0 to `limit` - 1.
  std::uint64_t below(std::uint64_t limit) { return next() % limit; }
  /// Returns a number from `first` to `last`.
  std::int64_t between(std::int64_t first, std::int64_t last) {
    return first + static_cast<std::int64_t>(below(static_cast<std::uint64_t>(last - first + 1)));
  }
  bool chance(int percent) { return below(100) < static_cast<std::uint64_t>(percent); }
  /// Returns a number in [0, 1).
  double unit() { return static_cast<double>(next() >> 11) / 9007199254740992.0; }

 private:
  std::uint64_t state_;
};

}  // namespace jx::simulation
