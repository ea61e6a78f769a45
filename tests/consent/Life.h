// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"

namespace jx::test {

/// A process of the test application, which uses the library with one storage folder. Operations
/// wait until the process has performed them; one that fails throws std::runtime_error.
class Life {
 public:
  Life(const std::string& folder, const std::string& host);

  /// Performs a command of `life/main.cpp` and returns the value that it prints.
  std::string perform(const std::string& command);
  /// Executes an event of an always-enabled ServerSide.
  void executeAlways(const std::string& event);
  /// Ends the process by SIGKILL.
  void kill();
  /// Calls disableServerSide, after which the process ends itself by SIGKILL. Returns false when it
  /// did not because the call took too long; the process is then killed later.
  bool disableAndKill(const std::string& name);
  /// Ends the process like an application and returns its log messages.
  std::string end();

 private:
  std::unique_ptr<ChildProcess> process_;
  int performed_ = 0;
  bool hasAlways_ = false;
};

}  // namespace jx::test
