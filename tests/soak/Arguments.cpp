// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Arguments.h"

#include <charconv>
#include <stdexcept>

namespace jx::soak {

Arguments::Arguments(const std::vector<std::string>& words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].rfind("--", 0) != 0)
      throw std::invalid_argument("unexpected argument: " + words[i]);
    const std::string name = words[i].substr(2);
    const bool hasValue = i + 1 < words.size() && words[i + 1].rfind("--", 0) != 0;
    given_[name] = hasValue ? words[++i] : std::string();
  }
}

std::uint64_t Arguments::number(const std::string& name, std::uint64_t defaultValue) {
  if (!has(name)) return defaultValue;
  const std::string& text = given_.at(name);
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw std::invalid_argument("--" + name + " must be a number");
  }
  return number;
}

std::string Arguments::text(const std::string& name) {
  return has(name) ? given_.at(name) : std::string();
}

bool Arguments::has(const std::string& name) {
  known_[name] = true;
  return given_.count(name) != 0;
}

void Arguments::expectAllKnown() const {
  for (const auto& [name, value] : given_) {
    if (known_.count(name) == 0) throw std::invalid_argument("unknown option: --" + name);
  }
}

}  // namespace jx::soak
