// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/Life.h"

#include <algorithm>
#include <set>
#include <utility>

#include "jx/core/storage/JXOutboxFolder.h"

namespace jx::simulation {
namespace {

// More steps of the transfer in one wait are an endless loop.
constexpr int kMaxSteps = 50'000;
constexpr std::int64_t kMinuteMs = 60'000;
// Ten hours: an event on which the server has failed is tried again after at most eight.
constexpr int kDrainSteps = 60;
// A dead letter is stored twice if its process is killed in between.
constexpr std::size_t kMaxTwice = 20;

}  // namespace

const char* const Life::kKindNames[kKinds] = {"kills",   "power",   "faults",  "several",
                                              "consent", "removal", "servers", "limits",
                                              "damage",  "anything"};

const char* Life::kindOf(std::uint64_t seed) { return kKindNames[seed % kKinds]; }

Life::Life(std::uint64_t seed, bool isVerbose)
    : world_(seed), kind_(static_cast<Kind>(seed % kKinds)) {
  world_.isVerbose = isVerbose;
  world_.disk.setTrace(isVerbose);
  configure();
}

void Life::configure() {
  Random& random = world_.random;
  const bool isAny = kind_ == Anything;
  if (kind_ == Several || (isAny && random.chance(50)) ||
      ((kind_ == Removal || kind_ == Consent) && random.chance(40))) {
    maxProcesses_ = 2 + random.below(2);
    world_.interleaves = random.chance(70);
  }
  hasLargeValues_ = random.chance(15);
  if (random.chance(20)) world_.bounds.maxAge = std::chrono::hours(random.between(1, 72));
  usesConsent_ = kind_ == Consent || (isAny && random.chance(50));
  sources_ = usesConsent_ ? static_cast<int>(random.between(1, 3)) : 1;
  if (kind_ == Limits || (isAny && random.chance(30))) configureLimits();
  if (kind_ == Servers || isAny) world_.network.lostResponses = random.chance(30) ? 20 : 0;
  world_.disk.setHook([this] { interleave(); });
}

void Life::configureLimits() {
  Random& random = world_.random;
  world_.bounds.maxRequests = static_cast<std::size_t>(random.between(1, 20));
  if (random.chance(50))
    world_.bounds.maxBytes = static_cast<std::uint64_t>(random.between(500, 20'000));
  world_.bounds.maxInMemory = static_cast<std::size_t>(random.below(6));
  world_.bounds.maxDeadLetters = static_cast<std::size_t>(random.below(4));
}

std::string Life::run() {
  const std::int64_t steps = world_.random.between(15, 70);
  start();
  for (std::int64_t i = 0; i < steps && world_.violation.empty(); ++i)
    step();
  if (world_.violation.empty()) finish();
  world_.disk.setHook(nullptr);  // it uses the processes
  return world_.violation;
}

void Life::step() {
  static constexpr int kMaxWeights = 64;
  int weights[kMaxWeights] = {};
  int sum = 0;
  const std::vector<Operation>& all = operations();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto& kinds = all[i].kinds;
    const bool happens = kinds.empty() || kind_ == Anything ||
                         std::find(kinds.begin(), kinds.end(), kind_) != kinds.end();
    sum += weights[i] = happens ? all[i].weight : 0;
  }
  auto drawn = static_cast<int>(world_.random.below(static_cast<std::uint64_t>(sum)));
  std::size_t chosen = 0;
  while (drawn >= weights[chosen])
    drawn -= weights[chosen++];
  (this->*all[chosen].run)();
  settle();
}

void Life::settle() {
  bury();
  workAll();
  bury();
  if (world_.disk.fault() != VirtualDisk::Fault::None) {
    world_.ledger.disturbed(world_.clock->steadyMs());
  }
}

// Moves the processes that have died out of the way.
void Life::bury() {
  const bool wasCut = world_.disk.takePowerCut();
  if (wasCut) world_.say("the power was cut");
  for (auto& process : processes_) {
    if (process->isAlive()) continue;
    world_.say("process %d has died", process->number());
    world_.ledger.died(process->number(), process->unreported());
    dead_.push_back(std::move(process));
  }
  processes_.erase(std::remove(processes_.begin(), processes_.end(), nullptr), processes_.end());
  if (wasCut) {
    world_.clock->restart();
    world_.ledger.powerCut();
  }
  dead_.clear();
}

void Life::workAll() {
  for (std::size_t i = 0; i < processes_.size(); ++i)
    processes_[i]->work();
}

void Life::advance(std::int64_t ms) {
  const std::int64_t end = world_.clock->steadyMs() + ms;
  for (int steps = 0; world_.violation.empty(); ++steps) {
    std::int64_t next = end;
    for (const auto& process : processes_) {
      if (process->isAlive()) next = std::min(next, process->nextMs().value_or(end));
    }
    world_.clock->advanceTo(std::max(next, world_.clock->steadyMs()));
    if (world_.disk.fault() != VirtualDisk::Fault::None) {
      world_.ledger.disturbed(world_.clock->steadyMs());
    }
    workAll();
    bury();
    if (next >= end) return;
    if (steps > kMaxSteps) world_.violated("the transfer threads wake up without end");
  }
}

// During a call of one process, others work.
void Life::interleave() {
  if (!world_.interleaves || !world_.random.chance(3)) return;
  for (const auto& process : processes_) {
    if (process->number() == world_.disk.current() || !process->isAlive()) continue;
    const bool mayExecute = !process->record().members.empty() && events_ < kMaxEvents;
    if (world_.random.chance(50) || !mayExecute) {
      process->work();
    } else {
      executeIn(*process, world_.random.below(process->record().members.size()));
    }
  }
}

VirtualProcess* Life::anyProcess() {
  return processes_.empty() ? nullptr : processes_[world_.random.below(processes_.size())].get();
}

bool Life::isDrained() {
  return std::all_of(processes_.begin(), processes_.end(),
                     [](const auto& process) { return process->counters().queued == 0; });
}

// Everything works again: every event must leave.
void Life::drain(const char* when) {
  for (int i = 0; i < kDrainSteps && !isDrained() && world_.violation.empty(); ++i)
    advance(10 * kMinuteMs);
  advance(2 * kMinuteMs);
  for (const auto& process : processes_) {
    const JXOutboxCounters counters = process->counters();
    if (counters.queued != 0) {
      world_.violated(std::string(when) + ", " + std::to_string(counters.queued) +
                      " events are not sent although everything works");
    }
  }
}

void Life::finish() {
  world_.say("everything works from now on");
  world_.disk.setHook(nullptr);
  healDisk();
  world_.network = {};
  world_.network.isRepaired = true;
  for (const auto& process : processes_) {
    world_.disk.killAt(process->number(), 0, false);
    for (int source = 0; source < sources_ && process->record().members.size() < 8; ++source)
      process->addMember(source, JXStartState::Enabled);
    process->enable();
  }
  drain("in the running processes");
  for (const auto& process : processes_) {
    process->exit();
    world_.ledger.died(process->number(), process->unreported());
  }
  for (auto& process : processes_) {
    const int number = process->number();
    process.reset();
    if (world_.disk.descriptors(number) != 0) world_.violated("a descriptor is not closed");
  }
  processes_.clear();
  if (!world_.violation.empty()) return;
  start();
  if (processes_.empty()) return;
  for (int source = 0; source < sources_; ++source)
    processes_.front()->addMember(source, JXStartState::Enabled);
  processes_.front()->enable();
  drain("in the last process");
  checkEnd();
}

void Life::checkEnd() {
  if (!world_.violation.empty()) return;
  world_.ledger.died(processes_.front()->number(), processes_.front()->unreported());
  checkMissing();
  checkErased("at the end");
  processes_.clear();
}

void Life::checkMissing() {
  std::string error;
  const std::string box = world_.folder + "/outbox";
  if (!listOutbox(box, error).empty()) world_.violated("sent events are still on the disk");
  std::set<std::string> deadLetters;
  for (const JXOutboxListing& each : listDeadLetters(box, error))
    deadLetters.insert(each.body);
  std::size_t rejected = 0;
  std::uint64_t missing = 0;
  std::string first;
  for (const Event& event : world_.ledger.events())
    rejected += event.isRejected || event.isGivenUp ? 1 : 0;
  for (const Event& event : world_.ledger.events()) {
    if (!event.isAccepted || event.isValue || event.mayBeLost || event.isReportedDropped) continue;
    // A rejected event that cannot be stored is dropped by the limits after its report.
    const bool isKept = deadLetters.count(event.body) != 0 || world_.mayExpire(event) ||
                        (event.isReportedRejected && world_.ledger.hadFault) ||
                        (event.attempts > 0 && world_.bounds.maxDeadLetters < rejected + kMaxTwice);
    if (event.received > 0 || ((event.isRejected || event.isGivenUp) && isKept)) {
      continue;
    }
    if (missing++ == 0) first = event.id;
  }
  if (missing > world_.ledger.unreported()) {
    world_.violated(std::to_string(missing) + " events are lost, first " + first);
  }
}

void Life::checkErased(const char* when) {
  world_.disk.visitFiles(world_.folder, [&](const std::string& path, const std::string& content) {
    for (const Event& event : world_.ledger.events()) {
      const std::string mark = event.isValue ? event.id : "\"" + event.id + "\"";
      if (!event.isErased || content.find(mark) == std::string::npos) continue;
      world_.violated(std::string(when) + ", " + path + " contains the erased " + event.id);
    }
  });
}

}  // namespace jx::simulation
