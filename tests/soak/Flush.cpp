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
#include "tests/soak/SilentHosts.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr double kDeadlineMs = 200;
constexpr double kSlackMs = 100;

// Sleeps the flushes' deadline again and again while it lives, to tell how late this machine wakes
// whoever waits for a time.
class BareSleeps {
 public:
  BareSleeps()
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

  void against(const std::string& what, WorkerOrders orders) {
    const test::TemporaryFolder folder;
    orders.state = folder.path();
    orders.events = 1;
    orders.awaitTry = true;
    orders.flushes = times_;
    orders.flushMs = static_cast<std::uint64_t>(kDeadlineMs);
    BareSleeps sleeps;
    const std::vector<Record> records = runWorkerToItsEnd(orders);
    const std::vector<double> bare = sleeps.end();
    if (const auto error = lastOf(records, Record::Kind::Unable)) {
      report_.say(what + ": left out, the system does not allow it (" +
                  std::generic_category().message(static_cast<int>(*error)) + ")");
      return;
    }
    std::vector<double> times;
    for (const std::uint64_t us : numbersOf(records, Record::Kind::Flushed))
      times.push_back(static_cast<double>(us) / 1'000);
    report_.say(what + ": " + std::to_string(times.size()) + " calls, " + spread(times, "ms") +
                "; bare sleeps meanwhile: " + spread(bare, "ms"));
    judge(records, times, *std::max_element(bare.begin(), bare.end()));
    report_.promise(queuedIn(folder.path()).size() == times_ + 1, "all events wait in the queue");
  }

 private:
  void judge(const std::vector<Record>& records, const std::vector<double>& times,
             double longestBareMs) {
    const auto [shortest, longest] = std::minmax_element(times.begin(), times.end());
    report_.promise(times.size() == times_ && lastOf(records, Record::Kind::Emptied) == 0,
                    "each call says that the queue is not empty");
    report_.promise(!times.empty() && *shortest >= kDeadlineMs, "none ends before its deadline");
    if (!assertsTimes_) return;
    report_.promise(!times.empty() && *longest <= longestBareMs + kSlackMs,
                    "none takes 100 ms more than the longest bare sleep");
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
  WorkerOrders orders;

  const NeverSpeaks mute;
  orders.host = mute.host();
  flushes.against("a host that accepts and never speaks", orders);

  const BlackHole hole;
  orders.host = hole.host();
  flushes.against("a host that answers no attempt to connect", orders);

  test::JXTestServer server;
  test::JXTestAnswer stall;
  stall.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(stall);
  orders.host = server.url("");
  orders.caFile = server.caFile();
  flushes.against("a host that reads requests and never answers", orders);

  orders.host = "https://collect.example.com";
  orders.silentNames = true;
  flushes.against("a name that no name server resolves", orders);
  return report.status();
}

}  // namespace jx::soak
