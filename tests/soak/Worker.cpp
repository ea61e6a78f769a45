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
#include "tests/soak/CommandedWorker.h"
#include "tests/soak/Record.h"
#include "tests/soak/SilentServers.h"

namespace jx::soak {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

std::uint64_t microsecondsSince(Clock::time_point start) {
  const auto passed = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
  return static_cast<std::uint64_t>(passed.count());
}

class Worker {
 public:
  explicit Worker(const WorkerOptions& options) : options_(options) {}

  void start() {
    JXCoreConfiguration::set(configurationOf(options_));
    const Clock::time_point before = Clock::now();
    serverSide_ = ServerSide::initWithSiteID_andSourceKey(1, "key");
    writeRecord(Record::Kind::Started, microsecondsSince(before));
  }

  void executeAll() {
    for (std::uint64_t i = 0; i < options_.events; ++i)
      executeOne();
    while (options_.awaitAttempt && JXNetworkManager::sharedInstance().counters().attempts == 0) {
      std::this_thread::sleep_for(milliseconds(1));
    }
  }

  void flushRepeatedly() {
    std::uint64_t emptied = 0;
    for (std::uint64_t i = 0; i < options_.flushes; ++i) {
      executeOne();
      if (timedFlush(milliseconds(options_.flushMs))) ++emptied;
    }
    writeRecord(Record::Kind::Emptied, emptied);
  }

  void deliver() {
    writeRecord(Record::Kind::Emptied, timedFlush(milliseconds(options_.deliverMs)) ? 1 : 0);
  }

  static void report() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto inUs = [](const timeval& time) { return time.tv_sec * 1'000'000 + time.tv_usec; };
    writeRecord(Record::Kind::Processor,
                static_cast<std::uint64_t>(inUs(used.ru_utime) + inUs(used.ru_stime)));
    writeRecord(Record::Kind::Attempts, JXNetworkManager::sharedInstance().counters().attempts);
    writeRecord(Record::Kind::Memory, peakMemoryKiB());
    writeRecord(Record::Kind::Reported, 0);
  }

 private:
  void executeOne() {
    const std::uint64_t number = options_.first + executed_++;
    executeNumbered(*serverSide_, number, options_.padBytes);
    writeRecord(Record::Kind::Executed, number);
    if (options_.gapUs == 0) return;
    std::this_thread::sleep_for(std::chrono::microseconds(options_.gapUs));
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

  const WorkerOptions options_;
  std::shared_ptr<ServerSide> serverSide_;
  std::uint64_t executed_ = 0;
};

// Reads the value of an option.
class OptionReader {
 public:
  explicit OptionReader(Arguments& arguments) : arguments_(arguments) {}
  void operator()(const char* name, std::string& value) { value = arguments_.text(name); }
  void operator()(const char* name, bool& value) { value = arguments_.has(name); }
  void operator()(const char* name, std::uint64_t& value) {
    value = arguments_.number(name, value);
  }

 private:
  Arguments& arguments_;
};

}  // namespace

JXCoreConfiguration configurationOf(const WorkerOptions& options) {
  JXCoreConfiguration configuration;
  configuration.storageFolder = options.state;
  configuration.collectionHost = options.host;
  if (!options.caFile.empty()) configuration.caFile = options.caFile;
  // High limits, so that no event is dropped.
  configuration.outboxBounds.maxRequests = 10'000'000;
  configuration.outboxBounds.maxBytes = std::uint64_t{64} << 30;
  configuration.outboxBounds.maxDeadLetters = options.deadLetters;
  configuration.onDelivery = [](const JXDelivery& delivery) {
    if (delivery.outcome != JXDeliveryOutcome::Dropped) return;
    writeRecord(Record::Kind::Dropped, static_cast<std::uint64_t>(delivery.dropReason));
  };
  if (options.quick) {
    configuration.retryTimings.initialBackoff = milliseconds(4);
    configuration.retryTimings.maxBackoff = milliseconds(30);
    configuration.retryTimings.syncDelay = milliseconds(5);
  }
  return configuration;
}

void executeNumbered(ServerSide& serverSide, std::uint64_t number, std::uint64_t padBytes) {
  const auto event = JXCustomEvent::initWithName("soak");
  event->addAdditionalParameter_withValue("n", std::to_string(number));
  if (padBytes != 0) {
    // Varying lengths hit the end of a file page, where a kill can cause a partial write.
    const std::size_t length = number * 7'919 % (padBytes + 1);
    event->addAdditionalParameter_withValue("pad", std::string(length, 'p'));
  }
  serverSide.execute(event);
}

int worker(Arguments& arguments) {
  WorkerOptions options;
  forEachOption(options, OptionReader(arguments));
  arguments.expectAllKnown();
  if (options.takesCommands) return perform(options);
  std::optional<SilentNameServer> names;
  if (options.silentNames) {
    names.emplace();
    if (names->error() != 0) {
      writeRecord(Record::Kind::Unable, static_cast<std::uint64_t>(names->error()));
      return 0;
    }
  }
  Worker worker(options);
  worker.start();
  worker.executeAll();
  if (names && !names->waitForQuery()) {
    // This system does not use the name server to resolve names.
    writeRecord(Record::Kind::Unable, ETIMEDOUT);
    return 0;
  }
  Worker::report();
  if (options.awaitGo) {
    char line[8];
    if (::read(STDIN_FILENO, line, sizeof line) <= 0) return 4;
  }
  if (options.flushes != 0) worker.flushRepeatedly();
  if (options.deliverMs != 0) {
    worker.deliver();
    Worker::report();
  }
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  writeRecord(Record::Kind::Leaving, static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 +
                                         static_cast<std::uint64_t>(now.tv_nsec));
  return 0;
}

}  // namespace jx::soak
