// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <string>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/SilentServers.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

constexpr std::uint64_t kMaxAttempts = 5;

struct Load {
  std::uint64_t events = 0;
  std::uint64_t gapMs = 0;
};

struct Work {
  std::uint64_t attempts = 0;
  double processorMs = 0;
};

WorkerOptions optionsFor(const Load& load, const std::string& state) {
  WorkerOptions options;
  options.state = state;
  options.events = load.events;
  options.gapUs = load.gapMs * 1'000;
  return options;
}

Work workIn(const std::vector<Record>& records) {
  return {lastOf(records, Record::Kind::Attempts).value_or(0),
          static_cast<double>(lastOf(records, Record::Kind::Processor).value_or(0)) / 1'000};
}

void setServer(WorkerOptions& options, const test::JXTestServer& server) {
  options.host = server.url("");
  options.caFile = server.caFile();
}

std::size_t missingOf(const Load& load, const test::JXTestServer& server,
                      const std::string& state) {
  const Tally tally = tallyOf(server, {state});
  std::size_t lost = 0;
  for (std::uint64_t number = 0; number < load.events; ++number) {
    if (!tally.contains(number)) ++lost;
  }
  return lost;
}

// Measures the work up to the last event, with a server that responds.
Work withServer(const Load& load) {
  const test::TemporaryFolder folder;
  const test::JXTestServer server;
  WorkerOptions options = optionsFor(load, folder.path());
  setServer(options, server);
  return workIn(runWorker(options));
}

// Measures the same while the server refuses connections; then a second process delivers to the
// working server.
Work whileRefused(const Load& load, Report& report) {
  const test::TemporaryFolder folder;
  test::JXTestServer server;
  server.refuse();
  WorkerOptions options = optionsFor(load, folder.path());
  setServer(options, server);
  const Work work = workIn(runWorker(options));
  server.accept();
  options.events = 0;
  options.deliverMs = 120'000;
  runWorker(options);
  const std::size_t lost = missingOf(load, server, folder.path());
  report.promise(lost == 0, "lost after the outage " + std::to_string(lost));
  return work;
}

// Measures the same with a port that counts and resets each connection.
Work whileReset(const Load& load, Report& report) {
  const test::TemporaryFolder folder;
  ResettingServer port;
  WorkerOptions options = optionsFor(load, folder.path());
  options.host = port.url();
  const Work work = workIn(runWorker(options));
  const std::uint64_t connections = port.stop();
  report.promise(connections <= work.attempts,
                 "connections counted by the port " + std::to_string(connections) +
                     ", attempts reported " + std::to_string(work.attempts));
  report.promise(queuedIn(folder.path()).size() == load.events, "all events are queued");
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
    const Work online = withServer(load);
    const Work offline = whileRefused(load, report);
    const Work broken = whileReset(load, report);
    attempts.insert(attempts.end(), {offline.attempts, broken.attempts});
    report.say("responding server: attempts " + std::to_string(online.attempts) +
               ", processor time " + rounded(online.processorMs) + " ms");
    report.say("refused connections: attempts " + std::to_string(offline.attempts) +
               ", processor time " + rounded(offline.processorMs) + " ms, " +
               rounded(offline.processorMs / online.processorMs, 2) +
               " of the run with a responding server");
    report.say("reset connections: attempts " + std::to_string(broken.attempts) +
               ", processor time " + rounded(broken.processorMs) + " ms");
  }
  // Retry delays are random: in seven seconds, one run in thirty makes a sixth attempt.
  report.promise(median(attempts) <= kMaxAttempts,
                 "median of the attempts in " + std::to_string(attempts.size()) + " runs " +
                     std::to_string(median(attempts)) + ", at most 5");
  return report.status();
}

}  // namespace jx::soak
