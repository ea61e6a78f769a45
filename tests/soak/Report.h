// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace jx::soak {

/// The results of one soak test, and whether its checks passed.
class Report {
 public:
  explicit Report(std::string name) : name_(std::move(name)) {}

  /// Prints a line.
  void say(const std::string& text) const;
  /// Prints the result of a check.
  void promise(bool passed, const std::string& text);
  /// Returns the exit status of the program: 0 if all checks passed.
  int status() const { return failed_ == 0 ? 0 : 1; }

 private:
  const std::string name_;
  int failed_ = 0;
};

/// Returns "minimum A, median B, maximum C `unit`", with three decimals.
std::string spread(std::vector<double> values, const std::string& unit);
/// Returns the number with `decimals` decimals.
std::string rounded(double value, int decimals = 1);

}  // namespace jx::soak
