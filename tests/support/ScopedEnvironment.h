// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>

namespace jx::test {

/// Changes environment variables of this process; the destructor restores the old values. Must not
/// be used while other threads read the environment.
class ScopedEnvironment {
 public:
  ScopedEnvironment() = default;
  ~ScopedEnvironment();
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  void set(const std::string& name, const std::string& value);
  void unset(const std::string& name);

 private:
  void remember(const std::string& name);

  std::map<std::string, std::optional<std::string>> before_;
};

}  // namespace jx::test
