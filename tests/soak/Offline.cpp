// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <string>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SilentHosts.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kMostAttempts = 5;

struct Load {
  std::uint64_t events = 0;
  std::uint64_t gapMs = 0;
};

struct Work {
  std::uint64_t tries = 0;
  double processorMs = 0;
};

WorkerOrders ordersFor(const Load& load, const std::string& state) {
  WorkerOrders orders;
  orders.state = state;
  orders.events = load.events;
  orders.gapUs = load.gapMs * 1'000;
  return orders;
}

Work workIn(const std::vector<Record>& records) {
  return {lastOf(records, Record::Kind::Tries).value_or(0),
          static_cast<double>(lastOf(records, Record::Kind::Processor).value_or(0)) / 1'000};
}

void aim(WorkerOrders& orders, const test::JXTestServer& server) {
  orders.host = server.url("");
  orders.caFile = server.caFile();
}

std::size_t missingOf(const Load& load, const test::JXTestServer& server,
                      const std::string& state) {
  const Tally tally = tallyOf(server, state);
  std::size_t lost = 0;
  for (std::uint64_t number = 0; number < load.events; ++number) {
    if (!tally.holds(number)) ++lost;
  }
  return lost;
}

// The work up to the last event, with a server that answers.
Work answered(const Load& load) {
  const test::TemporaryFolder folder;
  const test::JXTestServer server;
  WorkerOrders orders = ordersFor(load, folder.path());
  aim(orders, server);
  return workIn(runWorkerToItsEnd(orders));
}

// The same while the server refuses; then a second process delivers to a server that answers again.
Work refused(const Load& load, Report& report) {
  const test::TemporaryFolder folder;
  test::JXTestServer server;
  server.refuse();
  WorkerOrders orders = ordersFor(load, folder.path());
  aim(orders, server);
  const Work work = workIn(runWorkerToItsEnd(orders));
  server.accept();
  orders.events = 0;
  orders.deliverMs = 120'000;
  runWorkerToItsEnd(orders);
  const std::size_t lost = missingOf(load, server, folder.path());
  report.promise(lost == 0, "lost after the outage " + std::to_string(lost));
  return work;
}

// The same with a port that counts each connection and resets it.
Work reset(const Load& load, Report& report) {
  const test::TemporaryFolder folder;
  CountingResets port;
  WorkerOrders orders = ordersFor(load, folder.path());
  orders.host = port.host();
  const Work work = workIn(runWorkerToItsEnd(orders));
  const std::uint64_t connections = port.stop();
  report.promise(connections <= work.tries, "connections counted by the port " +
                                                std::to_string(connections) + ", tries told " +
                                                std::to_string(work.tries));
  report.promise(queuedIn(folder.path()).size() == load.events, "all events wait in the queue");
  return work;
}

std::uint64_t median(std::vector<std::uint64_t> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int offline(Arguments& arguments) {
  Load load;
  load.events = arguments.number("events", 2'050);
  load.gapMs = arguments.number("gap-ms", 3);
  const std::uint64_t rounds = std::max<std::uint64_t>(arguments.number("rounds", 3), 1);
  arguments.expectAllKnown();
  Report report("offline");
  report.say(std::to_string(load.events) + " events, " + std::to_string(load.gapMs) + " ms apart");
  std::vector<std::uint64_t> attempts;
  for (std::uint64_t round = 0; round < rounds; ++round) {
    const Work online = answered(load);
    const Work offline = refused(load, report);
    const Work broken = reset(load, report);
    attempts.insert(attempts.end(), {offline.tries, broken.tries});
    report.say("answered: tries " + std::to_string(online.tries) + ", processor time " +
               rounded(online.processorMs) + " ms");
    report.say("refused: tries " + std::to_string(offline.tries) + ", processor time " +
               rounded(offline.processorMs) + " ms, " +
               rounded(offline.processorMs / online.processorMs, 2) + " of the answered run's");
    report.say("reset: tries " + std::to_string(broken.tries) + ", processor time " +
               rounded(broken.processorMs) + " ms");
  }
  // The pauses are drawn: in seven seconds one run in thirty makes a sixth attempt.
  report.promise(median(attempts) <= kMostAttempts,
                 "attempts in the middle one of " + std::to_string(attempts.size()) + " runs " +
                     std::to_string(median(attempts)) + ", at most 5");
  return report.status();
}

}  // namespace jx::soak
