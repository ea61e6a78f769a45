// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/WorkerProcess.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>

namespace jx::soak {
namespace {

constexpr std::chrono::minutes kPatience{10};

// Writes an order as its option.
class OrderWriter {
 public:
  explicit OrderWriter(std::vector<std::string>& words) : words_(words) {}
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

std::vector<std::string> argumentsFor(const WorkerOrders& orders) {
  std::vector<std::string> words{"worker"};
  forEachOrder(orders, OrderWriter(words));
  return words;
}

}  // namespace

std::unique_ptr<ChildProcess> startWorker(const WorkerOrders& orders) {
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
  const auto input = orders.awaitGo ? ChildProcess::Input::Pipe : ChildProcess::Input::Empty;
  return std::make_unique<ChildProcess>(self, argumentsFor(orders),
                                        std::map<std::string, std::string>{}, input);
}

void go(ChildProcess& worker) {
  if (!worker.writeInput("go\n")) throw std::runtime_error("a worker ended before its time");
}

std::vector<Record> finish(ChildProcess& worker) {
  const ChildProcess::Result result = worker.wait(kPatience);
  if (result.status != 0) {
    throw std::runtime_error("a worker ended with status " + std::to_string(result.status) + "\n" +
                             result.errors);
  }
  return recordsIn(result.output);
}

std::vector<Record> runWorkerToItsEnd(const WorkerOrders& orders) {
  return finish(*startWorker(orders));
}

}  // namespace jx::soak
