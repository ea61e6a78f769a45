// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace jx::soak {

/// The result lines of one proof, and whether its promises were kept.
class Report {
 public:
  explicit Report(std::string name) : name_(std::move(name)) {}

  /// Prints a line.
  void say(const std::string& text) const;
  /// Prints whether a promise was kept.
  void promise(bool kept, const std::string& text);
  /// The program's exit status: 0 when all promises were kept.
  int status() const { return broken_ == 0 ? 0 : 1; }

 private:
  const std::string name_;
  int broken_ = 0;
};

/// "minimum A, median B, maximum C `unit`", with three decimals.
std::string spread(std::vector<double> values, const std::string& unit);
/// The number with `decimals` decimals.
std::string rounded(double value, int decimals = 1);

}  // namespace jx::soak
