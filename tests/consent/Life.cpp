// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/consent/Life.h"

#include <signal.h>

#include <chrono>
#include <map>
#include <stdexcept>
#include <vector>

namespace jx::test {
namespace {

constexpr std::chrono::seconds kPatience{30};

}  // namespace

Life::Life(const std::string& folder, const std::string& host)
    : process_(std::make_unique<ChildProcess>(
          JX_CONSENT_LIFE, std::vector<std::string>{folder, host},
          std::map<std::string, std::string>{}, ChildProcess::Input::Pipe)) {}

std::string Life::perform(const std::string& command) {
  const std::string reply = "done " + std::to_string(++performed_) + " ";
  // The process writes each line at once.
  if (!process_->writeInput(command + "\n") || !process_->waitForOutput(reply, kPatience)) {
    process_->signal(SIGABRT);
    throw std::runtime_error("the process did not perform: " + command + "\n" +
                             process_->wait(kPatience).errors);
  }
  const std::string& output = process_->output();
  const std::size_t begin = output.find(reply) + reply.size();
  return output.substr(begin, output.find('\n', begin) - begin);
}

void Life::executeAlways(const std::string& event) {
  if (!hasAlways_) perform("create always 1 always");
  hasAlways_ = true;
  perform("execute always " + event);
}

void Life::kill() {
  process_->signal(SIGKILL);
  process_->wait(kPatience);
}

bool Life::disableAndKill(const std::string& name) {
  process_->writeInput("kill " + name + "\n");
  const bool isSlow = process_->waitForOutput("slow\n", kPatience);
  if (isSlow) process_->signal(SIGKILL);
  const ChildProcess::Result result = process_->wait(kPatience);
  if (result.status != 128 + SIGKILL || result.timedOut) {
    throw std::runtime_error("the process was not killed:\n" + result.errors);
  }
  return !isSlow;
}

std::string Life::end() {
  process_->closeInput();
  const ChildProcess::Result result = process_->wait(kPatience);
  if (result.status != 0) throw std::runtime_error("the process failed:\n" + result.errors);
  return result.errors;
}

}  // namespace jx::test
