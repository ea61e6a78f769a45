// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/transfer/JXTransfer.h"
#include "jx/platform/JXManualClock.h"
#include "tests/core/transfer/JXTransferFixture.h"
#include "tests/support/JXTestProxy.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {

/// A wall clock and a steady clock that advance only when the test says so.
class ScenarioTime {
 public:
  /// 2026-09-21 14:13:20 UTC.
  static constexpr std::int64_t kStartMs = 1'790'000'000'000;

  void advance(std::chrono::milliseconds passed) {
    day->advance(passed.count());
    steady_->fetch_add(passed.count());
  }
  /// May outlive this object.
  std::function<std::chrono::steady_clock::time_point()> steadyNow() const {
    return [steady = steady_] {
      return std::chrono::steady_clock::time_point(std::chrono::milliseconds(steady->load()));
    };
  }
  const std::shared_ptr<JXManualClock> day = std::make_shared<JXManualClock>(kStartMs);

 private:
  const std::shared_ptr<std::atomic<std::int64_t>> steady_ =
      std::make_shared<std::atomic<std::int64_t>>(3'600'000);
};

/// A failed attempt, as logged.
struct FailedAttempt {
  int level = 0;
  std::chrono::milliseconds backoff{0};
  std::string reason;
};

/// A queue on disk and the processes that deliver it one after the other, to a real server with a
/// fault. Processes use the default retry timings with half of the jitter, on clocks that the test
/// advances.
class ServerScenario {
 public:
  explicit ServerScenario(const JXTestServerOptions& options = {});
  ~ServerScenario();
  ServerScenario(const ServerScenario&) = delete;
  ServerScenario& operator=(const ServerScenario&) = delete;

  /// Starts a process: opens the queue's folder and starts sending.
  void startProcess();
  /// Ends the process like an application does and adds up its counters.
  void endProcess();
  /// Queues the event; its body comes from `bodyOf`.
  void execute(const std::string& eventId);
  /// Advances the clocks. All work that became due is done when this returns.
  bool advance(std::chrono::milliseconds passed);
  /// Waits until `count` attempts have failed in all processes.
  bool waitForFailedAttempts(std::size_t count) { return failures.waitFor(count); }
  bool deliverAll();

  /// Returns the number of connections to all servers and proxies so far.
  int connections() const;
  /// Returns the counters of the running process.
  JXDeliveryCounters counters() const { return transfer_->counters(); }
  /// Returns the log messages up to `level`, without those of failed attempts, as "LEVEL text".
  std::vector<std::string> lines(int level) const;

  TemporaryFolder folder;
  ScenarioTime time;
  JXTestServer server;
  JXTestServer elsewhere;  ///< another server, which must not receive any event
  std::unique_ptr<JXTestProxy> proxy;
  std::string url;        ///< the address of the events
  JXTransferSetup setup;  ///< of the next processes; each opens the queue
  JXCollected<FailedAttempt> failures;
  JXCollected<JXDelivery> deliveries;
  std::uint64_t attemptsOfEndedProcesses = 0;
  std::uint64_t deliveredByEndedProcesses = 0;

 private:
  struct Line {
    int level = 0;
    std::string text;
  };

  void keepMessage(int level, const std::string& text);
  bool turn();

  JXCollected<Line> lines_;
  JXCollected<int> maintained_;
  std::shared_ptr<JXTransfer> transfer_;
};

}  // namespace jx::test
