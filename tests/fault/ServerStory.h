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

/// Clocks that stand still until the test moves them: the time of day and the steady one.
class StoryTime {
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

/// A failed try, as the log told it.
struct FailedTry {
  int level = 0;
  std::chrono::milliseconds pause{0};
  std::string reason;
};

/// A queue on the disk and the processes that serve it one after the other, against a real server
/// that the test misleads. Processes have the retry timings of production; pauses pass when the
/// test says so, and last half of their longest.
class ServerStory {
 public:
  explicit ServerStory(const JXTestServerOptions& options = {});
  ~ServerStory();
  ServerStory(const ServerStory&) = delete;
  ServerStory& operator=(const ServerStory&) = delete;

  /// A process starts: it opens the queue's folder and begins to send.
  void startProcess();
  /// The process ends as an application does; its counters are added up.
  void endProcess();
  /// Queues the event; its body comes from `bodyOf`.
  void execute(const std::string& eventId);
  /// Time passes, and whatever that made due has been done when this returns.
  bool advance(std::chrono::milliseconds passed);
  /// Waits until so many tries have failed in all processes.
  bool waitForFailedTries(std::size_t count) { return failures.waitFor(count); }
  bool deliverAll();

  /// Connections that any server or proxy of the story was asked for so far.
  int connections() const;
  /// Of the process that runs now.
  JXDeliveryCounters counters() const { return transfer_->counters(); }
  /// The log lines up to `level` that tell no failed try, each as "LEVEL text".
  std::vector<std::string> lines(int level) const;

  TemporaryFolder folder;
  StoryTime time;
  JXTestServer server;
  JXTestServer elsewhere;  ///< where nothing of all this belongs
  std::unique_ptr<JXTestProxy> proxy;
  std::string url;        ///< where events go
  JXTransferSetup setup;  ///< of the processes to come; the queue is opened by each
  JXCollected<FailedTry> failures;
  JXCollected<JXDelivery> deliveries;
  std::uint64_t triesOfEndedProcesses = 0;
  std::uint64_t deliveredByEndedProcesses = 0;

 private:
  struct Line {
    int level = 0;
    std::string text;
  };

  void keepLine(int level, const std::string& text);
  bool turn();

  JXCollected<Line> lines_;
  JXCollected<int> maintained_;
  std::unique_ptr<JXTransfer> transfer_;
};

}  // namespace jx::test
