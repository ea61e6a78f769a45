// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/KillRun.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "jx/platform/JXClock.h"
#include "tests/simulation/Random.h"
#include "tests/soak/CommandedWorker.h"
#include "tests/soak/ControlledProcess.h"
#include "tests/soak/FolderMoves.h"
#include "tests/soak/Record.h"
#include "tests/soak/Tally.h"
#include "tests/soak/UnreliableServer.h"
#include "tests/soak/WorkerProcess.h"

namespace jx::soak {
namespace {

using std::chrono::microseconds;

constexpr std::uint64_t kMaxEventsPerThread = 60;
constexpr std::uint64_t kMaxProcesses = 4;
constexpr std::uint64_t kMaxRounds = 3;
constexpr std::size_t kMaxInFlight = 4;
constexpr std::uint64_t kShortLifeUs = 60'000;
// The queue usually empties in this time, so that kills hit short and long queues.
constexpr std::uint64_t kLongLifeUs = 500'000;
constexpr std::uint64_t kLongestStartUs = 15'000;
constexpr std::uint64_t kDayMs = 86'400'000;

class KillRun {
 public:
  explicit KillRun(const KillOptions& options) : options_(options), random_(options.seed) {}

  KillResult run() {
    const std::uint64_t processes = 1 + below(kMaxProcesses);
    if (processes > 1) result_.parallel = 1;
    const std::uint64_t rounds = 1 + below(kMaxRounds);
    for (std::uint64_t i = 0; i < rounds; ++i)
      runRound(processes);
    deliverTheRest();
    return result_;
  }

 private:
  std::uint64_t below(std::uint64_t limit) { return random_.below(limit); }
  bool oneIn(std::uint64_t times) { return below(times) == 0; }

  void check(bool passed, const std::string& failure) {
    if (!passed) result_.failures += failure + "\n";
  }

  // Each process starts while the earlier ones run; they are killed in random order.
  void runRound(std::uint64_t processes) {
    server_.choose();
    const bool hasShortBackoff = oneIn(2);
    for (std::uint64_t i = 0; i < processes; ++i) {
      if (!processes_.empty()) waitBeforeKill(processes_.back());
      start(hasShortBackoff);
      if (oneIn(6)) killWhileItStarts();
      disturb();
    }
    while (!processes_.empty()) {
      std::swap(processes_.back(), processes_[below(processes_.size())]);
      waitBeforeKill(processes_.back());
      disturb();
      killLast();
      if (hasUnfinishedMove_) continueAll();
      disturb();
    }
  }

  // For example while it reads the queue of the previous processes.
  void killWhileItStarts() {
    std::this_thread::sleep_for(microseconds(below(kLongestStartUs)));
    killLast();
  }

  WorkerOptions optionsFor(const std::string& state) {
    WorkerOptions options;
    options.state = state;
    options.host = server_.server().url("");
    options.caFile = server_.server().caFile();
    return options;
  }

  void start(bool hasShortBackoff) {
    WorkerOptions options = optionsFor(moves_.state());
    options.first = ++started_ * kNumbersPerWorker;
    options.takesCommands = true;
    options.threads = 1 + below(kMaxThreads);
    options.events = 1 + below(kMaxEventsPerThread);
    options.gapUs = oneIn(2) ? 0 : below(1'000);
    options.padBytes = oneIn(4) ? 20'000 : 300;
    options.quick = hasShortBackoff;
    if (oneIn(4)) options.wallMs = randomTime();
    result_.threads += options.threads;
    processes_.emplace_back(options);
  }

  std::uint64_t randomTime() {
    if (oneIn(4)) return below(kDayMs);  // 1970
    const auto now = static_cast<std::uint64_t>(JXSystemClock().nowMs());
    return now + below(2 * options_.maxJumpDays * kDayMs) - options_.maxJumpDays * kDayMs;
  }

  void disturb() {
    switch (below(8)) {
      case 0:
      case 1:
        return moveFolder();
      case 2:
        return startChild();
      case 3:
        return setClock();
      default:
        return;
    }
  }

  void moveFolder() {
    const bool movesBack = !moves_.moved().empty() && oneIn(2);
    const bool isWhole = !oneIn(3);
    const bool replaces = oneIn(3);
    const std::size_t index = movesBack ? below(moves_.moved().size()) : 0;
    const bool finishes = !oneIn(4);
    if (!(movesBack ? moves_.moveBack(index) : moves_.moveAway(isWhole, replaces))) return;
    ++result_.moves;
    hasUnfinishedMove_ = !finishes && !processes_.empty();
    if (hasUnfinishedMove_)
      ++result_.unfinishedMoves;
    else
      continueAll();
  }

  // From here on, the events of the running processes must be at the path of the storage folder.
  void continueAll() {
    std::set<std::uint64_t> workers;
    for (ControlledProcess& process : processes_) {
      process.perform({command::kExecute});
      workers.insert(process.first());
    }
    moves_.workersContinued(workers);
    hasUnfinishedMove_ = false;
  }

  void startChild() {
    static constexpr char kCommands[] = {command::kFork, command::kForkExec, command::kSpawn};
    const char kind = kCommands[below(std::size(kCommands))];
    if (processes_.empty()) return;
    processes_[below(processes_.size())].perform({kind});
    ++result_.forks;
  }

  void setClock() {
    const std::string time = std::to_string(randomTime());
    if (processes_.empty()) return;
    processes_[below(processes_.size())].perform(command::kSetClock + time);
    ++result_.clockJumps;
  }

  void waitBeforeKill(ControlledProcess& process) {
    process.waitForEvent();
    std::this_thread::sleep_for(microseconds(below(oneIn(6) ? kLongLifeUs : kShortLifeUs)));
  }

  void killLast() {
    ControlledProcess process = std::move(processes_.back());
    processes_.pop_back();
    const std::vector<Record> records = process.kill();
    ++result_.kills;
    recordStart(records);
    const std::vector<std::uint64_t> numbers = numbersOf(records, Record::Kind::Executed);
    executed_.insert(numbers.begin(), numbers.end());
    if (numbers.empty()) ++result_.early;
    for (const std::uint64_t count : numbersOf(records, Record::Kind::Inherited))
      check(count == 0, "a program inherits descriptors of the library: " + process.errors());
    result_.longestQueue =
        std::max<std::uint64_t>(result_.longestQueue, queueLengthIn(moves_.state()));
  }

  void recordStart(const std::vector<Record>& records) {
    for (const std::uint64_t reason : numbersOf(records, Record::Kind::Dropped))
      check(false, "an event is dropped for reason " + std::to_string(reason));
    const double ms =
        static_cast<double>(lastOf(records, Record::Kind::Started).value_or(0)) / 1'000;
    result_.longestStartMs = std::max(result_.longestStartMs, ms);
  }

  void deliverTheRest() {
    server_.succeed();
    deliver(moves_.state());
    std::vector<std::string> states{moves_.state()};
    for (const FolderMoves::Moved& moved : moves_.moved())
      states.push_back(moved.state);
    checkMoved(tallyOf(server_.server(), states));
    for (const FolderMoves::Moved& moved : moves_.moved())
      if (!queuedIn(moved.state).empty()) deliver(moved.state);
    checkAll(tallyOf(server_.server(), states));
    for (const std::string& state : states)
      result_.quarantined += quarantinedIn(state);
  }

  void deliver(const std::string& state) {
    WorkerOptions options = optionsFor(state);
    options.deliverMs = 300'000;
    options.quick = true;
    const std::vector<Record> records = runWorker(options);
    recordStart(records);
    check(lastOf(records, Record::Kind::Emptied) == 1 && queuedIn(state).empty(),
          "the last process does not empty the queue");
  }

  // Events that wait in a folder elsewhere are found when it is moved back. They are excused if
  // their process did not execute an event after the move.
  void checkMoved(const Tally& tally) {
    for (const FolderMoves::Moved& moved : moves_.moved()) {
      for (const std::uint64_t number : queuedIn(moved.state)) {
        if (tally.contains(number)) continue;
        ++result_.excused;
        check(moved.continued.count(number - number % kNumbersPerWorker) == 0,
              "event " + std::to_string(number) + " is left in " + moved.state);
      }
    }
  }

  void checkAll(const Tally& tally) {
    result_.executed = executed_.size();
    result_.requests = tally.bodies;
    result_.delivered = tally.accepted.size();
    result_.rejected = tally.distinct() - tally.accepted.size();
    result_.twice = tally.repeats;
    result_.lost = missing({executed_.begin(), executed_.end()}, tally);
    check(result_.lost == 0, std::to_string(result_.lost) + " events are lost");
    check(result_.twice <= kMaxInFlight * result_.kills,
          "more than four events per kill, those in flight, are delivered twice");
    check(tally.differing == 0, "attempts of an event have different bytes");
    check(tally.renamed == 0, "an event has two event_ids");
    check(tally.unreadable == 0, "a request is not readable");
    for (const auto* arrived : {&tally.accepted, &tally.rejected})
      checkInterrupted(*arrived);
  }

  // An event for which execute did not return is the next one of its thread.
  void checkInterrupted(const std::set<std::uint64_t>& arrived) {
    std::vector<std::uint64_t> extra;
    std::set_difference(arrived.begin(), arrived.end(), executed_.begin(), executed_.end(),
                        std::back_inserter(extra));
    result_.interrupted += extra.size();
    for (const std::uint64_t number : extra) {
      const bool isNext = number % kNumbersPerRange == 0 || executed_.count(number - 1) != 0;
      const bool isForked = number % kNumbersPerWorker / kNumbersPerRange == kForked;
      check(isNext && !isForked, "event " + std::to_string(number) + " was not executed");
    }
  }

  const KillOptions options_;
  simulation::Random random_;
  FolderMoves moves_;
  UnreliableServer server_{random_};
  std::vector<ControlledProcess> processes_;
  std::uint64_t started_ = 0;
  bool hasUnfinishedMove_ = false;
  std::set<std::uint64_t> executed_;
  KillResult result_;
};

}  // namespace

KillResult runKills(const KillOptions& options) { return KillRun(options).run(); }

}  // namespace jx::soak
