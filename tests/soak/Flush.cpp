// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <chrono>
#include <stop_token>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SilentServers.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr double kDeadlineMs = 200;
constexpr double kSlackMs = 100;

// Sleeps for the deadline of a flush repeatedly while it exists, to measure how late this machine
// wakes a sleeping thread.
class PlainSleeps {
 public:
  PlainSleeps()
      : thread_([this](const std::stop_token& stop) {
          while (!stop.stop_requested())
            sleepOnce();
        }) {}

  std::vector<double> end() {
    thread_.request_stop();
    thread_.join();
    return times_;
  }

 private:
  void sleepOnce() {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const auto before = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(Milliseconds(kDeadlineMs));
    times_.push_back(Milliseconds(std::chrono::steady_clock::now() - before).count());
  }

  std::vector<double> times_;
  std::jthread thread_;
};

class Flushes {
 public:
  Flushes(std::uint64_t times, bool assertsTimes, Report& report)
      : times_(times), assertsTimes_(assertsTimes), report_(report) {}

  void run(const std::string& what, WorkerOptions options) {
    const test::TemporaryFolder folder;
    options.state = folder.path();
    options.events = 1;
    options.awaitAttempt = true;
    options.flushes = times_;
    options.flushMs = static_cast<std::uint64_t>(kDeadlineMs);
    PlainSleeps sleeps;
    const std::vector<Record> records = runWorker(options);
    const std::vector<double> sleepTimes = sleeps.end();
    if (const auto error = lastOf(records, Record::Kind::Unable)) {
      report_.say(what + ": skipped, not permitted by the system (" +
                  std::generic_category().message(static_cast<int>(*error)) + ")");
      return;
    }
    std::vector<double> times;
    for (const std::uint64_t us : numbersOf(records, Record::Kind::Flushed))
      times.push_back(static_cast<double>(us) / 1'000);
    report_.say(what + ": " + std::to_string(times.size()) + " calls, " + spread(times, "ms") +
                "; plain sleeps at the same time: " + spread(sleepTimes, "ms"));
    check(records, times, *std::max_element(sleepTimes.begin(), sleepTimes.end()));
    report_.promise(queuedIn(folder.path()).size() == times_ + 1, "all events are queued");
  }

 private:
  void check(const std::vector<Record>& records, const std::vector<double>& times,
             double longestSleepMs) {
    const auto [shortest, longest] = std::minmax_element(times.begin(), times.end());
    report_.promise(times.size() == times_ && lastOf(records, Record::Kind::Emptied) == 0,
                    "each call reports that the queue is not empty");
    report_.promise(!times.empty() && *shortest >= kDeadlineMs,
                    "no call returns before its deadline");
    if (!assertsTimes_) return;
    report_.promise(!times.empty() && *longest <= longestSleepMs + kSlackMs,
                    "no call takes 100 ms more than the longest plain sleep");
  }

  const std::uint64_t times_;
  const bool assertsTimes_;
  Report& report_;
};

}  // namespace

int flush(Arguments& arguments) {
  const std::uint64_t times = std::max<std::uint64_t>(arguments.number("times", 100), 1);
  const bool assertsTimes = arguments.has("assert-times");
  arguments.expectAllKnown();
  Report report("flush");
  Flushes flushes(times, assertsTimes, report);
  WorkerOptions options;

  const SilentServer silent;
  options.host = silent.url();
  flushes.run("a server that accepts connections and never sends data", options);

  const BlackHole hole;
  options.host = hole.url();
  flushes.run("a server that does not respond to connection attempts", options);

  test::JXTestServer server;
  test::JXTestAnswer stall;
  stall.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(stall);
  options.host = server.url("");
  options.caFile = server.caFile();
  flushes.run("a server that reads requests and never responds", options);

  options.host = "https://collect.example.com";
  options.silentNames = true;
  flushes.run("a host name that no name server resolves", options);
  return report.status();
}

}  // namespace jx::soak
