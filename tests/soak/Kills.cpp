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

constexpr std::uint64_t kNumbersOfWorker = 1'000;
constexpr std::uint64_t kMostEvents = 200;
constexpr std::uint64_t kMostAtOnce = 4;
constexpr std::size_t kMostInFlight = 4;
constexpr std::uint64_t kShortLifeUs = 60'000;
// In which the queue empties as a rule, so that kills fall on few and on many requests.
constexpr std::uint64_t kLongLifeUs = 500'000;
constexpr std::uint64_t kLongestStartUs = 10'000;

test::JXTestAnswer answerOf(int status, Manner manner = Manner::Whole) {
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
    chooseMood();
    const bool isQuick = below(2) == 0;
    const std::uint64_t crowd = below(4) == 0 ? 2 + below(kMostAtOnce - 1) : 1;
    if (crowd > 1) ++crowds_;
    // Each starts while those before it run, and any of them goes first.
    std::vector<Victim> victims;
    for (std::uint64_t i = 0; i < crowd; ++i) {
      if (i != 0) letLive(victims.back());
      victims.push_back(start(number * kMostAtOnce + i, isQuick));
    }
    std::shuffle(victims.begin(), victims.end(), random_);
    for (Victim& victim : victims)
      killSomeTime(victim);
    if (refusing_) server_.accept();
  }

  // A last process delivers what the others left.
  bool deliverTheRest() {
    answerWell();
    WorkerOrders orders = commonOrders();
    orders.deliverMs = 300'000;
    const std::vector<Record> records = runWorkerToItsEnd(orders);
    noteStart(records);
    return lastOf(records, Record::Kind::Emptied) == 1;
  }

  int report(std::uint64_t runs, std::uint64_t seed, bool emptied) {
    const Tally tally = tallyOf(server_, folder_.path());
    Report report("kills");
    report.say("runs " + std::to_string(runs) + " (seed " + std::to_string(seed) + "), kills " +
               std::to_string(inHand_.size()) + ", runs with two to four processes at once " +
               std::to_string(crowds_) + ", killed before the first event " +
               std::to_string(early_));
    report.say("executed " + std::to_string(executed_.size()) + ", received " +
               std::to_string(tally.bodies) + " requests, delivered distinct " +
               std::to_string(tally.distinct()) + " (of these to the dead letters " +
               std::to_string(tally.distinct() - tally.taken.size()) + "), delivered twice " +
               std::to_string(tally.repeats));
    report.say("writes torn by a kill and set aside " + std::to_string(setAsideIn(folder_.path())) +
               ", events in hand when the kill came that arrived " +
               std::to_string(extra(tally).size()));
    report.say("longest queue that a kill left " + std::to_string(longestQueue_) +
               ", longest start " + rounded(longestStartMs_) + " ms");
    const std::size_t lost = missing(executed_, tally);
    report.promise(lost == 0, "lost " + std::to_string(lost));
    report.promise(emptied && queuedIn(folder_.path()).empty(),
                   "the last process empties the queue");
    report.promise(extra(tally).size() <= inHand_.size() && isOnlyInHand(tally),
                   "beside them only events that were in hand when a kill came");
    report.promise(tally.repeats <= kMostInFlight * inHand_.size(),
                   "delivered twice at most the four in flight at each kill");
    report.promise(tally.differing == 0, "each try of an event has the same bytes");
    report.promise(tally.renamed == 0, "each event has one event_id");
    report.promise(tally.unreadable == 0, "each request is readable");
    report.promise(!executed_.empty() && tally.bodies > 0, "there was something to lose");
    return report.status();
  }

 private:
  struct Victim {
    std::uint64_t first = 0;
    std::unique_ptr<ChildProcess> process;
  };

  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }

  WorkerOrders commonOrders() {
    WorkerOrders orders;
    orders.state = folder_.path();
    orders.host = server_.url("");
    orders.caFile = server_.caFile();
    return orders;
  }

  void answerWell() {
    server_.forgetNext();
    server_.answerAll(answerOf(200));
  }

  // How the server answers during one run.
  void chooseMood() {
    answerWell();
    switch (below(10)) {
      case 0:
        return server_.answerAll(answerOf(503));
      case 1:
        return server_.answerAll(answerOf(200, Manner::Reset));
      case 2:
        return server_.answerAll(answerOf(200, Manner::StallBeforeHead));
      case 3:
        refusing_ = true;
        return server_.refuse();
      case 4:
      case 5:
        return answerByTurns();
      default:
        return;
    }
  }

  void answerByTurns() {
    static const std::vector<test::JXTestAnswer> kBad{answerOf(503),
                                                      answerOf(429),
                                                      answerOf(400),
                                                      answerOf(400, Manner::CloseInBody),
                                                      answerOf(200, Manner::Reset),
                                                      answerOf(200, Manner::CloseInBody)};
    for (int i = 0; i < 60; ++i)
      server_.answerNext(below(4) == 0 ? kBad[below(kBad.size())] : answerOf(200));
  }

  Victim start(std::uint64_t number, bool isQuick) {
    WorkerOrders orders = commonOrders();
    orders.first = (number + 1) * kNumbersOfWorker;
    orders.events = 1 + below(kMostEvents);
    orders.gapUs = below(2) == 0 ? 0 : below(1'000);
    orders.padBytes = below(4) == 0 ? 20'000 : 300;
    orders.quick = isQuick;
    orders.waitForKill = true;
    return {orders.first, startWorker(orders)};
  }

  void letLive(const Victim& victim) {
    // One in ten dies early: while it starts, and adopts what the one before left.
    if (below(10) == 0) {
      std::this_thread::sleep_for(microseconds(below(kLongestStartUs)));
      return;
    }
    if (!victim.process->waitForOutput(beginningOf(Record::Kind::Executed),
                                       std::chrono::seconds(60))) {
      throw std::runtime_error("a worker executes nothing");
    }
    std::this_thread::sleep_for(microseconds(below(below(6) == 0 ? kLongLifeUs : kShortLifeUs)));
  }

  void killSomeTime(Victim& victim) {
    letLive(victim);
    victim.process->signal(SIGKILL);
    const ChildProcess::Result result = victim.process->wait(std::chrono::seconds(60));
    if (result.status != 128 + SIGKILL) {
      throw std::runtime_error("a worker ended by itself: " + result.errors);
    }
    const std::vector<Record> records = recordsIn(result.output);
    noteStart(records);
    const std::vector<std::uint64_t> numbers = numbersOf(records, Record::Kind::Executed);
    executed_.insert(executed_.end(), numbers.begin(), numbers.end());
    inHand_.push_back(numbers.empty() ? victim.first : numbers.back() + 1);
    if (numbers.empty()) ++early_;
    longestQueue_ = std::max(longestQueue_, queueLengthIn(folder_.path()));
  }

  void noteStart(const std::vector<Record>& records) {
    const double ms =
        static_cast<double>(lastOf(records, Record::Kind::Started).value_or(0)) / 1'000;
    longestStartMs_ = std::max(longestStartMs_, ms);
  }

  // What arrived without the driver having read that execute returned.
  std::vector<std::uint64_t> extra(const Tally& tally) const {
    const std::set<std::uint64_t> executed(executed_.begin(), executed_.end());
    std::vector<std::uint64_t> numbers;
    for (const auto* arrived : {&tally.taken, &tally.rejected}) {
      std::set_difference(arrived->begin(), arrived->end(), executed.begin(), executed.end(),
                          std::back_inserter(numbers));
    }
    return numbers;
  }

  bool isOnlyInHand(const Tally& tally) const {
    const std::set<std::uint64_t> inHand(inHand_.begin(), inHand_.end());
    const std::vector<std::uint64_t> numbers = extra(tally);
    return std::all_of(numbers.begin(), numbers.end(),
                       [&](std::uint64_t each) { return inHand.count(each) != 0; });
  }

  std::mt19937_64 random_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
  std::vector<std::uint64_t> executed_;
  std::vector<std::uint64_t> inHand_;
  bool refusing_ = false;
  std::uint64_t crowds_ = 0;
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
