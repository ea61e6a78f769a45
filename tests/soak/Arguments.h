// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace jx::soak {

/// The options of a command line: "--name value", or "--name" alone for a switch.
class Arguments {
 public:
  /// Throws std::invalid_argument for a word that is not an option.
  explicit Arguments(const std::vector<std::string>& words);

  /// Returns the number of an option, or `defaultValue` without the option. Throws
  /// std::invalid_argument if its value is not a number.
  std::uint64_t number(const std::string& name, std::uint64_t defaultValue);
  /// Returns the value of an option, empty without the option.
  std::string text(const std::string& name);
  /// Returns whether the option is present.
  bool has(const std::string& name);
  /// Throws std::invalid_argument for an option that none of the calls above has read.
  void expectAllKnown() const;

 private:
  std::map<std::string, std::string> given_;
  std::map<std::string, bool> known_;
};

}  // namespace jx::soak
