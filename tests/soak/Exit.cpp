// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <time.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SilentServers.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kEvents = 20;
// The limit of the library, plus the time that the rest may take on a busy machine.
constexpr double kMaxMs = 250 + 150;

double monotonicMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

class Exits {
 public:
  Exits(std::uint64_t times, bool assertsTimes, Report& report)
      : times_(times), assertsTimes_(assertsTimes), report_(report) {}

  // All processes share one folder. With `server`, each exits while the server delays a response.
  void run(const std::string& what, WorkerOptions options, test::JXTestServer* server = nullptr) {
    const test::TemporaryFolder folder;
    options.state = folder.path();
    options.events = kEvents;
    options.awaitGo = true;
    std::vector<double> durations;
    for (std::uint64_t run = 0; run < times_; ++run) {
      options.first = run * kEvents;
      const std::unique_ptr<ChildProcess> worker = startWorker(options);
      if (!worker->waitForOutput(prefixOf(Record::Kind::Reported), std::chrono::seconds(60))) {
        reportFailure(what, *worker);
        return;
      }
      if (server != nullptr && !server->waitForRequests(run + 1)) {
        report_.promise(false, "the server received a request");
        return;
      }
      resume(*worker);
      const std::vector<Record> records = finish(*worker);
      const double ended = monotonicMs();
      const auto left = static_cast<double>(lastOf(records, Record::Kind::Leaving).value_or(0));
      durations.push_back(ended - left / 1e6);
    }
    report_.say(what + ": " + std::to_string(durations.size()) + " exits, " +
                spread(durations, "ms"));
    check(durations, folder.path());
  }

 private:
  void reportFailure(const std::string& what, ChildProcess& worker) {
    if (const auto error = lastOf(finish(worker), Record::Kind::Unable)) {
      report_.say(what + ": skipped, not permitted by the system (" +
                  std::generic_category().message(static_cast<int>(*error)) + ")");
    } else {
      report_.promise(false, what + ": the worker executed its events");
    }
  }

  void check(const std::vector<double>& durations, const std::string& state) {
    const std::vector<std::uint64_t> queued = queuedIn(state);
    bool isWhole = queued.size() == times_ * kEvents;
    for (std::size_t i = 0; isWhole && i < queued.size(); ++i)
      isWhole = queued[i] == i;
    report_.promise(isWhole, "each event is queued once");
    if (!assertsTimes_) return;
    report_.promise(*std::max_element(durations.begin(), durations.end()) <= kMaxMs,
                    "each process exits within 400 ms");
  }

  const std::uint64_t times_;
  const bool assertsTimes_;
  Report& report_;
};

}  // namespace

int exit(Arguments& arguments) {
  const std::uint64_t times = std::max<std::uint64_t>(arguments.number("times", 100), 1);
  const bool assertsTimes = arguments.has("assert-times");
  arguments.expectAllKnown();
  Report report("exit");
  Exits exits(times, assertsTimes, report);
  WorkerOptions options;

  test::JXTestServer server;
  options.host = server.url("");
  options.caFile = server.caFile();
  server.refuse();
  exits.run("right after the first events, with libcurl in its initialisation", options);

  options.awaitAttempt = true;
  server.accept();
  test::JXTestAnswer stall;
  stall.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(stall);
  exits.run("with a stalled request in flight", options, &server);
  server.refuse();
  exits.run("while connections are refused", options);

  const BlackHole hole;
  options.host = hole.url();
  exits.run("while connecting to a server that does not respond", options);

  options.host = "https://collect.example.com";
  options.silentNames = true;
  exits.run("while resolving a host name without a response", options);
  return report.status();
}

}  // namespace jx::soak
