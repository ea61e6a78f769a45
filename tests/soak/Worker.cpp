// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Worker.h"

#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "jx/JXServerSide.h"
#include "tests/soak/Record.h"
#include "tests/soak/SilentHosts.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

std::uint64_t microsecondsSince(Clock::time_point start) {
  const auto passed = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
  return static_cast<std::uint64_t>(passed.count());
}

JXCoreConfiguration configurationOf(const WorkerOrders& orders) {
  JXCoreConfiguration configuration;
  configuration.storageFolder = orders.state;
  configuration.collectionHost = orders.host;
  if (!orders.caFile.empty()) configuration.caFile = orders.caFile;
  // So that nothing is missing because it was displaced.
  configuration.outboxBounds.maxRequests = 10'000'000;
  configuration.outboxBounds.maxBytes = std::uint64_t{64} << 30;
  configuration.outboxBounds.maxDeadLetters = 10'000'000;
  if (orders.quick) {
    configuration.retryTimings.initialBackoff = milliseconds(4);
    configuration.retryTimings.maxBackoff = milliseconds(30);
    configuration.retryTimings.syncDelay = milliseconds(5);
  }
  return configuration;
}

class Worker {
 public:
  explicit Worker(const WorkerOrders& orders) : orders_(orders) {}

  void start() {
    JXCoreConfiguration::set(configurationOf(orders_));
    const Clock::time_point before = Clock::now();
    serverSide_ = ServerSide::initWithSiteID_andSourceKey(1, "key");
    writeRecord(Record::Kind::Started, microsecondsSince(before));
  }

  void executeAll() {
    for (std::uint64_t i = 0; i < orders_.events; ++i)
      executeOne();
    while (orders_.awaitTry && JXNetworkManager::sharedInstance().counters().attempts == 0) {
      std::this_thread::sleep_for(milliseconds(1));
    }
  }

  void flushAgainAndAgain() {
    std::uint64_t emptied = 0;
    for (std::uint64_t i = 0; i < orders_.flushes; ++i) {
      executeOne();
      if (timedFlush(milliseconds(orders_.flushMs))) ++emptied;
    }
    writeRecord(Record::Kind::Emptied, emptied);
  }

  void deliver() {
    writeRecord(Record::Kind::Emptied, timedFlush(milliseconds(orders_.deliverMs)) ? 1 : 0);
  }

  static void report() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto inUs = [](const timeval& time) { return time.tv_sec * 1'000'000 + time.tv_usec; };
    writeRecord(Record::Kind::Processor,
                static_cast<std::uint64_t>(inUs(used.ru_utime) + inUs(used.ru_stime)));
    writeRecord(Record::Kind::Tries, JXNetworkManager::sharedInstance().counters().attempts);
    writeRecord(Record::Kind::Memory, peakMemoryKiB());
    writeRecord(Record::Kind::Reported, 0);
  }

 private:
  void executeOne() {
    const std::uint64_t number = orders_.first + executed_++;
    const auto event = JXCustomEvent::initWithName("soak");
    event->addAdditionalParameter_withValue("n", std::to_string(number));
    if (orders_.padBytes != 0) {
      // Any length may end a page of the file, where a kill can tear a write.
      const std::size_t length = number * 7'919 % (orders_.padBytes + 1);
      event->addAdditionalParameter_withValue("pad", std::string(length, 'p'));
    }
    serverSide_->execute(event);
    writeRecord(Record::Kind::Executed, number);
    if (orders_.gapUs == 0) return;
    std::this_thread::sleep_for(std::chrono::microseconds(orders_.gapUs));
  }

  static bool timedFlush(milliseconds deadline) {
    const Clock::time_point before = Clock::now();
    const bool empty = JXNetworkManager::sharedInstance().flush(deadline);
    writeRecord(Record::Kind::Flushed, microsecondsSince(before));
    return empty;
  }

  static std::uint64_t peakMemoryKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
      std::uint64_t peak = 0;
      if (word == "VmHWM:" && status >> peak) return peak;
    }
    return 0;
  }

  const WorkerOrders orders_;
  std::shared_ptr<ServerSide> serverSide_;
  std::uint64_t executed_ = 0;
};

// Reads an order from its option.
class OrderReader {
 public:
  explicit OrderReader(Arguments& arguments) : arguments_(arguments) {}
  void operator()(const char* name, std::string& value) { value = arguments_.text(name); }
  void operator()(const char* name, bool& value) { value = arguments_.has(name); }
  void operator()(const char* name, std::uint64_t& value) {
    value = arguments_.number(name, value);
  }

 private:
  Arguments& arguments_;
};

}  // namespace

int worker(Arguments& arguments) {
  WorkerOrders orders;
  forEachOrder(orders, OrderReader(arguments));
  arguments.expectAllKnown();
  std::optional<SilentNames> names;
  if (orders.silentNames) {
    names.emplace();
    if (names->error() != 0) {
      writeRecord(Record::Kind::Unable, static_cast<std::uint64_t>(names->error()));
      return 0;
    }
  }
  Worker worker(orders);
  worker.start();
  worker.executeAll();
  if (names && !names->waitForQuestion()) {
    // This system asks for names by another way than the name server.
    writeRecord(Record::Kind::Unable, ETIMEDOUT);
    return 0;
  }
  Worker::report();
  if (orders.awaitGo) {
    char line[8];
    if (::read(STDIN_FILENO, line, sizeof line) <= 0) return 4;
  }
  if (orders.flushes != 0) worker.flushAgainAndAgain();
  if (orders.deliverMs != 0) {
    worker.deliver();
    Worker::report();
  }
  if (orders.waitForKill) ::pause();
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  writeRecord(Record::Kind::Leaving, static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 +
                                         static_cast<std::uint64_t>(now.tv_nsec));
  return 0;
}

}  // namespace jx::soak
