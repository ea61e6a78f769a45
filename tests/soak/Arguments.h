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
  /// Throws std::invalid_argument for a word that is no option.
  explicit Arguments(const std::vector<std::string>& words);

  /// The number given for an option, or `otherwise`. Throws std::invalid_argument when what was
  /// given is no number.
  std::uint64_t number(const std::string& name, std::uint64_t otherwise);
  std::string text(const std::string& name);
  bool has(const std::string& name);
  /// Throws std::invalid_argument when an option was given for which nobody asked.
  void expectAllKnown() const;

 private:
  std::map<std::string, std::string> given_;
  std::map<std::string, bool> known_;
};

}  // namespace jx::soak
