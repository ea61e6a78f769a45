// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/ControlledProcess.h"

#include <chrono>
#include <csignal>
#include <stdexcept>

#include "tests/soak/WorkerProcess.h"

namespace jx::soak {
namespace {

constexpr std::chrono::seconds kTimeout{60};

}  // namespace

ControlledProcess::ControlledProcess(const WorkerOptions& options,
                                     const std::map<std::string, std::string>& environment)
    : first_(options.first), process_(startWorker(options, environment)) {}

void ControlledProcess::perform(const std::string& command) {
  ++commands_;
  if (process_->writeInput(command + "\n") &&
      process_->waitForOutput(textOf(Record::Kind::Performed, commands_), kTimeout)) {
    return;
  }
  process_->signal(SIGKILL);
  throw std::runtime_error("a worker did not perform '" + command +
                           "': " + process_->wait(kTimeout).errors);
}

void ControlledProcess::waitForEvent() {
  if (process_->waitForOutput(prefixOf(Record::Kind::Executed), kTimeout)) return;
  process_->signal(SIGKILL);
  throw std::runtime_error("a worker did not execute an event: " + process_->wait(kTimeout).errors);
}

std::vector<Record> ControlledProcess::exit() {
  process_->closeInput();
  ChildProcess::Result result = process_->wait(kTimeout);
  errors_ = std::move(result.errors);
  if (result.status != 0) throw std::runtime_error("a worker failed: " + errors_);
  return recordsIn(result.output);
}

std::vector<Record> ControlledProcess::kill() {
  process_->signal(SIGKILL);
  ChildProcess::Result result = process_->wait(kTimeout);
  errors_ = std::move(result.errors);
  if (result.status != 128 + SIGKILL) {
    throw std::runtime_error("a worker exited before the kill: " + errors_);
  }
  return recordsIn(result.output);
}

}  // namespace jx::soak
