// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/soak/Record.h"
#include "tests/soak/Worker.h"
#include "tests/support/ChildProcess.h"

namespace jx::soak {

/// A running worker that executes commands, until `kill` or `exit`. The operations throw
/// std::runtime_error if the worker ends before that, or does not react within a minute.
class ControlledProcess {
 public:
  explicit ControlledProcess(const WorkerOptions& options,
                             const std::map<std::string, std::string>& environment = {});

  /// Returns the number of its first event.
  std::uint64_t first() const { return first_; }
  /// Waits until the worker has performed a command (see `command`).
  void perform(const std::string& command);
  /// Waits until the worker has executed an event.
  void waitForEvent();
  /// Returns the records of the worker.
  std::vector<Record> kill();
  /// Lets the worker return from `main`, and returns its records.
  std::vector<Record> exit();
  /// Returns what the worker wrote to standard error until it was killed or exited.
  const std::string& errors() const { return errors_; }

 private:
  std::uint64_t first_;
  std::unique_ptr<ChildProcess> process_;
  std::uint64_t commands_ = 0;
  std::string errors_;
};

}  // namespace jx::soak
