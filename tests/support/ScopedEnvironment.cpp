// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ScopedEnvironment.h"

#include <stdlib.h>

namespace jx::test {

ScopedEnvironment::~ScopedEnvironment() {
  for (const auto& [name, value] : before_) {
    if (value) {
      ::setenv(name.c_str(), value->c_str(), 1);
    } else {
      ::unsetenv(name.c_str());
    }
  }
}

void ScopedEnvironment::set(const std::string& name, const std::string& value) {
  remember(name);
  ::setenv(name.c_str(), value.c_str(), 1);
}

void ScopedEnvironment::unset(const std::string& name) {
  remember(name);
  ::unsetenv(name.c_str());
}

void ScopedEnvironment::remember(const std::string& name) {
  if (before_.count(name) != 0) return;
  const char* value = ::getenv(name.c_str());
  before_[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

}  // namespace jx::test
