// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXEnvironment.h"

#include <cstdlib>

namespace jx {

JXEnvironment copyProcessEnvironment() {
  static constexpr const char* kNames[] = {
      "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_MONETARY", "LC_CTYPE",
      "LANG",     "TZ",     "TZDIR",       "HOME",        "XDG_STATE_HOME"};
  JXEnvironment copy;
  for (const char* name : kNames) {
    // Called once, at the start. The copy protects against later changes by the application.
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    if (value != nullptr) copy.emplace(name, JXString(value));
  }
  return copy;
}

JXString variable(const JXEnvironment& environment, std::string_view name) {
  const auto found = environment.find(name);
  if (found == environment.end() || !found->second.testString()) return nullptr;
  return found->second;
}

}  // namespace jx
