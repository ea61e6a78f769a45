// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/WorkerProcess.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

namespace jx::soak {
namespace {

constexpr std::chrono::minutes kWorkerTimeout{10};

// Converts a value to an option.
class OptionWriter {
 public:
  explicit OptionWriter(std::vector<std::string>& words) : words_(words) {}
  void operator()(const std::string& name, const std::string& value) {
    if (!value.empty()) words_.insert(words_.end(), {"--" + name, value});
  }
  void operator()(const std::string& name, bool value) {
    if (value) words_.push_back("--" + name);
  }
  void operator()(const std::string& name, std::uint64_t value) {
    words_.insert(words_.end(), {"--" + name, std::to_string(value)});
  }

 private:
  std::vector<std::string>& words_;
};

std::vector<std::string> argumentsFor(const WorkerOptions& options) {
  std::vector<std::string> words{"worker"};
  forEachOption(options, OptionWriter(words));
  return words;
}

}  // namespace

std::unique_ptr<ChildProcess> startWorker(const WorkerOptions& options,
                                          const std::map<std::string, std::string>& environment) {
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
  const bool hasInput = options.awaitGo || options.takesCommands;
  const auto input = hasInput ? ChildProcess::Input::Pipe : ChildProcess::Input::Empty;
  return std::make_unique<ChildProcess>(self, argumentsFor(options), environment, input);
}

void keepDescriptorsFromWorkers() {
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    const int descriptor = std::stoi(entry.path().filename().string());
    if (descriptor > STDERR_FILENO) ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  }
}

void resume(ChildProcess& worker) {
  if (!worker.writeInput("go\n")) throw std::runtime_error("a worker exited too early");
}

std::vector<Record> finish(ChildProcess& worker) {
  const ChildProcess::Result result = worker.wait(kWorkerTimeout);
  if (result.status != 0) {
    throw std::runtime_error("a worker exited with status " + std::to_string(result.status) + "\n" +
                             result.errors);
  }
  return recordsIn(result.output);
}

std::vector<Record> runWorker(const WorkerOptions& options) {
  return finish(*startWorker(options));
}

}  // namespace jx::soak
