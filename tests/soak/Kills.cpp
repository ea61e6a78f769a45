// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

using std::chrono::microseconds;
using Manner = test::JXTestAnswer::Manner;

constexpr std::uint64_t kNumbersPerWorker = 1'000;
constexpr std::uint64_t kMaxEvents = 200;
constexpr std::uint64_t kMaxProcesses = 4;
constexpr std::size_t kMaxInFlight = 4;
constexpr std::uint64_t kShortLifeUs = 60'000;
// The queue usually empties in this time, so that kills hit short and long queues.
constexpr std::uint64_t kLongLifeUs = 500'000;
constexpr std::uint64_t kLongestStartUs = 10'000;

test::JXTestAnswer responseWith(int status, Manner manner = Manner::Whole) {
  test::JXTestAnswer answer;
  answer.status = status;
  answer.manner = manner;
  return answer;
}

class Kills {
 public:
  explicit Kills(std::uint64_t seed) : random_(seed) {}

  void run(std::uint64_t number) {
    refusing_ = false;
    chooseServerBehaviour();
    const bool hasShortBackoff = below(2) == 0;
    const std::uint64_t processes = below(4) == 0 ? 2 + below(kMaxProcesses - 1) : 1;
    if (processes > 1) ++parallelRuns_;
    // Each starts while the earlier ones run; they are killed in random order.
    std::vector<Victim> victims;
    for (std::uint64_t i = 0; i < processes; ++i) {
      if (i != 0) waitBeforeKill(victims.back());
      victims.push_back(start(number * kMaxProcesses + i, hasShortBackoff));
    }
    std::shuffle(victims.begin(), victims.end(), random_);
    for (Victim& victim : victims)
      killAtRandomTime(victim);
    if (refusing_) server_.accept();
  }

  // Delivers the remaining queue in one last process.
  bool deliverTheRest() {
    respondWithSuccess();
    WorkerOptions options = commonOptions();
    options.deliverMs = 300'000;
    const std::vector<Record> records = runWorker(options);
    recordStart(records);
    return lastOf(records, Record::Kind::Emptied) == 1;
  }

  int report(std::uint64_t runs, std::uint64_t seed, bool emptied) {
    const Tally tally = tallyOf(server_, folder_.path());
    Report report("kills");
    report.say("runs " + std::to_string(runs) + " (seed " + std::to_string(seed) + "), kills " +
               std::to_string(interrupted_.size()) +
               ", runs with two to four processes in parallel " + std::to_string(parallelRuns_) +
               ", killed before the first event " + std::to_string(early_));
    report.say("executed events " + std::to_string(executed_.size()) + ", received requests " +
               std::to_string(tally.bodies) + ", distinct events delivered " +
               std::to_string(tally.distinct()) + " (in the dead letters " +
               std::to_string(tally.distinct() - tally.accepted.size()) + "), delivered twice " +
               std::to_string(tally.repeats));
    report.say("partial writes quarantined after a kill " +
               std::to_string(quarantinedIn(folder_.path())) +
               ", events delivered whose execute did not return before the kill " +
               std::to_string(extra(tally).size()));
    report.say("longest queue after a kill " + std::to_string(longestQueue_) + ", longest start " +
               rounded(longestStartMs_) + " ms");
    const std::size_t lost = missing(executed_, tally);
    report.promise(lost == 0, "lost " + std::to_string(lost));
    report.promise(emptied && queuedIn(folder_.path()).empty(),
                   "the last process empties the queue");
    report.promise(extra(tally).size() <= interrupted_.size() && areAllInterrupted(tally),
                   "all other delivered events were being executed during a kill");
    report.promise(tally.repeats <= kMaxInFlight * interrupted_.size(),
                   "at most four events per kill, those in flight, delivered twice");
    report.promise(tally.differing == 0, "all attempts of an event have the same bytes");
    report.promise(tally.renamed == 0, "each event has one event_id");
    report.promise(tally.unreadable == 0, "each request is readable");
    report.promise(!executed_.empty() && tally.bodies > 0, "events were executed and received");
    return report.status();
  }

 private:
  struct Victim {
    std::uint64_t first = 0;
    std::unique_ptr<ChildProcess> process;
  };

  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }

  WorkerOptions commonOptions() {
    WorkerOptions options;
    options.state = folder_.path();
    options.host = server_.url("");
    options.caFile = server_.caFile();
    return options;
  }

  void respondWithSuccess() {
    server_.forgetNext();
    server_.answerAll(responseWith(200));
  }

  // Chooses the behaviour of the server during one run.
  void chooseServerBehaviour() {
    respondWithSuccess();
    switch (below(10)) {
      case 0:
        return server_.answerAll(responseWith(503));
      case 1:
        return server_.answerAll(responseWith(200, Manner::Reset));
      case 2:
        return server_.answerAll(responseWith(200, Manner::StallBeforeHead));
      case 3:
        refusing_ = true;
        return server_.refuse();
      case 4:
      case 5:
        return respondWithRandomErrors();
      default:
        return;
    }
  }

  void respondWithRandomErrors() {
    static const std::vector<test::JXTestAnswer> kErrors{responseWith(503),
                                                         responseWith(429),
                                                         responseWith(400),
                                                         responseWith(400, Manner::CloseInBody),
                                                         responseWith(200, Manner::Reset),
                                                         responseWith(200, Manner::CloseInBody)};
    for (int i = 0; i < 60; ++i)
      server_.answerNext(below(4) == 0 ? kErrors[below(kErrors.size())] : responseWith(200));
  }

  Victim start(std::uint64_t number, bool hasShortBackoff) {
    WorkerOptions options = commonOptions();
    options.first = (number + 1) * kNumbersPerWorker;
    options.events = 1 + below(kMaxEvents);
    options.gapUs = below(2) == 0 ? 0 : below(1'000);
    options.padBytes = below(4) == 0 ? 20'000 : 300;
    options.quick = hasShortBackoff;
    options.waitForKill = true;
    return {options.first, startWorker(options)};
  }

  void waitBeforeKill(const Victim& victim) {
    // One in ten is killed early: while it starts and reads the queue of the previous process.
    if (below(10) == 0) {
      std::this_thread::sleep_for(microseconds(below(kLongestStartUs)));
      return;
    }
    if (!victim.process->waitForOutput(prefixOf(Record::Kind::Executed),
                                       std::chrono::seconds(60))) {
      throw std::runtime_error("a worker did not execute an event within 60 s");
    }
    std::this_thread::sleep_for(microseconds(below(below(6) == 0 ? kLongLifeUs : kShortLifeUs)));
  }

  void killAtRandomTime(Victim& victim) {
    waitBeforeKill(victim);
    victim.process->signal(SIGKILL);
    const ChildProcess::Result result = victim.process->wait(std::chrono::seconds(60));
    if (result.status != 128 + SIGKILL) {
      throw std::runtime_error("a worker exited before the kill: " + result.errors);
    }
    const std::vector<Record> records = recordsIn(result.output);
    recordStart(records);
    const std::vector<std::uint64_t> numbers = numbersOf(records, Record::Kind::Executed);
    executed_.insert(executed_.end(), numbers.begin(), numbers.end());
    interrupted_.push_back(numbers.empty() ? victim.first : numbers.back() + 1);
    if (numbers.empty()) ++early_;
    longestQueue_ = std::max(longestQueue_, queueLengthIn(folder_.path()));
  }

  void recordStart(const std::vector<Record>& records) {
    const double ms =
        static_cast<double>(lastOf(records, Record::Kind::Started).value_or(0)) / 1'000;
    longestStartMs_ = std::max(longestStartMs_, ms);
  }

  // Returns the events that arrived although the driver has not read that execute returned.
  std::vector<std::uint64_t> extra(const Tally& tally) const {
    const std::set<std::uint64_t> executed(executed_.begin(), executed_.end());
    std::vector<std::uint64_t> numbers;
    for (const auto* arrived : {&tally.accepted, &tally.rejected}) {
      std::set_difference(arrived->begin(), arrived->end(), executed.begin(), executed.end(),
                          std::back_inserter(numbers));
    }
    return numbers;
  }

  bool areAllInterrupted(const Tally& tally) const {
    const std::set<std::uint64_t> interrupted(interrupted_.begin(), interrupted_.end());
    const std::vector<std::uint64_t> numbers = extra(tally);
    return std::all_of(numbers.begin(), numbers.end(),
                       [&](std::uint64_t each) { return interrupted.count(each) != 0; });
  }

  std::mt19937_64 random_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
  std::vector<std::uint64_t> executed_;
  std::vector<std::uint64_t> interrupted_;
  bool refusing_ = false;
  std::uint64_t parallelRuns_ = 0;
  std::uint64_t early_ = 0;
  std::size_t longestQueue_ = 0;
  double longestStartMs_ = 0;
};

}  // namespace

int kills(Arguments& arguments) {
  const std::uint64_t runs = arguments.number("runs", 1'000);
  const std::uint64_t seed = arguments.number("seed", std::random_device()());
  arguments.expectAllKnown();
  Kills kills(seed);
  for (std::uint64_t run = 0; run < runs; ++run)
    kills.run(run);
  const bool emptied = kills.deliverTheRest();
  return kills.report(runs, seed, emptied);
}

}  // namespace jx::soak
