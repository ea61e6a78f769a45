// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/KilledValues.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "jx/JXServerSide.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/platform/JXManualClock.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "tests/simulation/Random.h"
#include "tests/soak/Record.h"
#include "tests/soak/Worker.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kStartMs = 1'790'000'000'000;
constexpr std::uint64_t kProcesses = 3;
constexpr std::chrono::seconds kTimeout{60};

// Responds to each request with 204, so that files of delivered events are deleted.
class Accepting final : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    const std::lock_guard<std::mutex> lock(mutex_);
    JXHttpResult result;
    result.request = std::move(request);
    result.outcome.status = 204;
    results_.push_back(std::move(result));
  }
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_for(lock, timeout.value_or(std::chrono::hours(1)),
                      [this] { return isWoken_ || !results_.empty(); });
    isWoken_ = false;
    return std::exchange(results_, {});
  }
  void wakeUp() noexcept override {
    const std::lock_guard<std::mutex> lock(mutex_);
    isWoken_ = true;
    changed_.notify_all();
  }
  void abortAll() noexcept override {}

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isWoken_ = false;
  std::vector<JXHttpResult> results_;
};

// Returns the time between an event of a process and the one before. The usage duration increases
// by it until the next event, so that both values of an event differ from those of its neighbours.
std::uint64_t stepBefore(std::size_t event) { return 7 + event % 5; }

std::uint64_t numberOf(const JXString& value) {
  return value.testString() ? std::stoull(value.toStdString()) : 0;
}

struct Values {
  std::uint64_t lastCallMs = 0;
  std::uint64_t usageMs = 0;
  bool operator==(const Values& other) const {
    return lastCallMs == other.lastCallMs && usageMs == other.usageMs;
  }
};

std::string textOf(const Values& values) {
  return std::to_string(values.lastCallMs) + "/" + std::to_string(values.usageMs);
}

// Reads a copy of the folder as the next start does.
Values valuesIn(const std::string& state, const std::string& copy) {
  std::filesystem::copy(state, copy, std::filesystem::copy_options::recursive);
  std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
  std::filesystem::permissions(copy + "/outbox", std::filesystem::perms::owner_all);
  JXDefaultsFile defaults(copy + "/defaults");
  JXOutbox outbox(copy, JXOutboxBounds(), std::make_shared<JXSystemClock>(), nullptr, false, {},
                  "outbox");
  outbox.beginStoring(&defaults);
  return {numberOf(defaults.objectForKey(kJXPredefinedVariable_LastCallMs)),
          numberOf(defaults.objectForKey(kJXUsageDuration))};
}

// Returns the values of the last event for which execute returned, and of the next one.
std::pair<Values, Values> expectedAfter(const std::vector<Record>& records) {
  const std::vector<std::uint64_t> calls = numbersOf(records, Record::Kind::Executed);
  const std::vector<std::uint64_t> usages = numbersOf(records, Record::Kind::Usage);
  const std::size_t count = calls.size();
  const Values last{calls.back(), usages.at(count - 1)};
  const std::uint64_t step = stepBefore(count);
  return {last, {last.lastCallMs + step, last.usageMs - stepBefore(count - 1) + step}};
}

std::vector<Record> runAndKill(const std::vector<std::string>& words, simulation::Random& random) {
  ChildProcess process(std::filesystem::read_symlink("/proc/self/exe").string(), words);
  process.waitForOutput(prefixOf(Record::Kind::Executed), kTimeout);
  std::this_thread::sleep_for(std::chrono::microseconds(random.below(60'000)));
  process.signal(SIGKILL);
  return recordsIn(process.wait(kTimeout).output);
}

}  // namespace

std::string killedValues(std::uint64_t seed) {
  simulation::Random random(seed);
  const test::TemporaryFolder folder;
  std::string failures;
  std::uint64_t first = kStartMs;
  for (std::uint64_t i = 0; i < kProcesses; ++i) {
    std::vector<std::string> words{"timed-worker",
                                   "--state",
                                   folder.path("state"),
                                   "--first",
                                   std::to_string(first),
                                   "--pad-bytes",
                                   std::to_string(random.below(60'000))};
    if (random.below(2) == 0) words.emplace_back("--quick");
    const std::vector<Record> records = runAndKill(words, random);
    if (numbersOf(records, Record::Kind::Executed).empty()) {
      return failures + "a process whose values are checked executes no event\n";
    }
    const auto [last, next] = expectedAfter(records);
    const Values found = valuesIn(folder.path("state"), folder.path("copy-" + std::to_string(i)));
    if (!(found == last) && !(found == next)) {
      failures += "values of a killed process: found " + textOf(found) + " instead of " +
                  textOf(last) + " or " + textOf(next) + "\n";
    }
    first = found.lastCallMs;
  }
  return failures;
}

int timedWorker(Arguments& arguments) {
  WorkerOptions options;
  options.state = arguments.text("state");
  options.first = arguments.number("first", kStartMs);
  options.padBytes = arguments.number("pad-bytes", 0);
  options.quick = arguments.has("quick");
  arguments.expectAllKnown();
  const auto clock = std::make_shared<JXManualClock>(static_cast<std::int64_t>(options.first));
  JXCoreConfiguration configuration = configurationOf(options);
  configuration.clock = clock;
  configuration.transport = std::make_shared<Accepting>();
  JXCoreConfiguration::set(configuration);
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey(1, "key");
  std::uint64_t now = options.first;
  for (std::size_t event = 0;; ++event) {
    clock->advance(static_cast<std::int64_t>(stepBefore(event)));
    now += stepBefore(event);
    executeNumbered(*serverSide, now, options.padBytes);
    writeRecord(Record::Kind::Usage,
                numberOf(JXUserDefaults::retrieveInfoFromUserDefaults(kJXUsageDuration)));
    writeRecord(Record::Kind::Executed, now);
  }
}

}  // namespace jx::soak
