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
#include "tests/soak/SilentHosts.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kEvents = 20;
// What the library takes at most, and as much again as a busy machine may take for the rest.
constexpr double kLongestMs = 250 + 150;

double monotonicMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

class Exits {
 public:
  Exits(std::uint64_t times, bool assertsTimes, Report& report)
      : times_(times), assertsTimes_(assertsTimes), report_(report) {}

  // All processes share one folder. With `server`, each ends while the server holds a request.
  void against(const std::string& what, WorkerOrders orders, test::JXTestServer* server = nullptr) {
    const test::TemporaryFolder folder;
    orders.state = folder.path();
    orders.events = kEvents;
    orders.awaitTry = true;
    orders.awaitGo = true;
    std::vector<double> times;
    for (std::uint64_t run = 0; run < times_; ++run) {
      orders.first = run * kEvents;
      const std::unique_ptr<ChildProcess> worker = startWorker(orders);
      if (!worker->waitForOutput(beginningOf(Record::Kind::Reported), std::chrono::seconds(60))) {
        tellWhyNot(what, *worker);
        return;
      }
      if (server != nullptr && !server->waitForRequests(run + 1)) {
        report_.promise(false, "the server receives a request");
        return;
      }
      go(*worker);
      const std::vector<Record> records = finish(*worker);
      const double ended = monotonicMs();
      const auto left = static_cast<double>(lastOf(records, Record::Kind::Leaving).value_or(0));
      times.push_back(ended - left / 1e6);
    }
    report_.say(what + ": " + std::to_string(times.size()) + " ends, " + spread(times, "ms"));
    judge(times, folder.path());
  }

 private:
  void tellWhyNot(const std::string& what, ChildProcess& worker) {
    if (const auto error = lastOf(finish(worker), Record::Kind::Unable)) {
      report_.say(what + ": left out, the system does not allow it (" +
                  std::generic_category().message(static_cast<int>(*error)) + ")");
    } else {
      report_.promise(false, what + ": the worker comes to the end of its events");
    }
  }

  void judge(const std::vector<double>& times, const std::string& state) {
    const std::vector<std::uint64_t> queued = queuedIn(state);
    bool isWhole = queued.size() == times_ * kEvents;
    for (std::size_t i = 0; isWhole && i < queued.size(); ++i)
      isWhole = queued[i] == i;
    report_.promise(isWhole, "each event waits in the queue once");
    if (!assertsTimes_) return;
    report_.promise(*std::max_element(times.begin(), times.end()) <= kLongestMs,
                    "each process ends within 400 ms");
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
  WorkerOrders orders;

  test::JXTestServer server;
  orders.host = server.url("");
  orders.caFile = server.caFile();
  test::JXTestAnswer stall;
  stall.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(stall);
  exits.against("with a request in flight that stalls", orders, &server);
  server.refuse();
  exits.against("while connections are refused", orders);

  const BlackHole hole;
  orders.host = hole.host();
  exits.against("while connecting to a host that does not answer", orders);

  orders.host = "https://collect.example.com";
  orders.silentNames = true;
  exits.against("while asking for a name that no name server resolves", orders);
  return report.status();
}

}  // namespace jx::soak
