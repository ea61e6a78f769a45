// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/Life.h"

namespace jx::simulation {
namespace {

constexpr std::int64_t kSecondMs = 1'000;
constexpr std::int64_t kHourMs = 3'600'000;
constexpr std::int64_t kDayMs = 24 * kHourMs;

}  // namespace

const std::vector<Life::Operation>& Life::operations() {
  static const std::vector<Operation> all = {
      {&Life::start, 12, {}},
      {&Life::execute, 25, {}},
      {&Life::executeMany, 8, {}},
      {&Life::wait, 25, {}},
      {&Life::waitLong, 4, {}},
      {&Life::waitDays, 2, {Servers}},
      {&Life::setValue, 5, {}},
      {&Life::flush, 2, {}},
      {&Life::exit, 3, {}},
      {&Life::kill, 3, {}},
      {&Life::killSoon, 8, {Kills, Several, Consent, Removal, Faults, Damage, Limits}},
      {&Life::cutPower, 3, {Power, Removal}},
      {&Life::cutPowerSoon, 7, {Power, Removal}},
      {&Life::breakDisk, 8, {Faults}},
      {&Life::healDisk, 8, {Faults}},
      {&Life::stop, 8, {Consent}},
      {&Life::enable, 8, {Consent}},
      {&Life::erase, 4, {Removal}},
      {&Life::purge, 3, {Removal}},
      {&Life::purgeOutside, 5, {Removal}},
      {&Life::changeNetwork, 7, {}},
      {&Life::healNetwork, 6, {}},
      {&Life::jumpClock, 3, {Servers}},
      {&Life::damage, 6, {Damage}},
      {&Life::deleteFolder, 4, {Faults}},
  };
  return all;
}

JXStartState Life::anyStart() {
  if (!usesConsent_) return JXStartState::Enabled;
  constexpr JXStartState kStates[] = {JXStartState::Enabled, JXStartState::AlwaysEnabled,
                                      JXStartState::Disabled, JXStartState::WaitingForConsent};
  return kStates[world_.random.below(4)];
}

void Life::start() {
  if (processes_.size() >= maxProcesses_) return;
  const bool wasPending =
      world_.eraseIsPending && world_.eraseMark().compare(0, 8, "pending ") == 0;
  auto process = std::make_unique<VirtualProcess>(world_);
  world_.say("process %d starts", process->number());
  process->start();
  bury();
  world_.ledger.adopted(process->number(), world_.clock->steadyMs(), false);
  const auto members = world_.random.between(1, sources_);
  for (std::int64_t i = 0; i < members; ++i)
    process->addMember(static_cast<int>(world_.random.below(static_cast<std::uint64_t>(sources_))),
                       anyStart());
  const bool works = process->isAlive() && world_.disk.fault() == VirtualDisk::Fault::None;
  processes_.push_back(std::move(process));
  if (!wasPending) return;
  world_.ledger.erasedAtStart(works);
  if (works) world_.eraseIsPending = false;
}

std::size_t Life::bodySize() {
  const std::uint64_t drawn = world_.random.below(100);
  if (drawn < 90) return world_.random.below(400);
  if (drawn < 99 || kind_ != Limits) return world_.random.below(5'000);
  return world_.random.below(400'000);
}

Event& Life::newEvent(int source, bool hasWaitingMarker) {
  Random& random = world_.random;
  Event& event = world_.ledger.events().emplace_back();
  event.id = std::string("e").append(std::to_string(++events_));
  event.source = source;
  event.host = random.chance(20) ? 1 : 0;
  const bool hasServerFaults = kind_ == Servers || kind_ == Limits || kind_ == Anything;
  event.isPoisonous = hasServerFaults && random.chance(8);
  event.isRejected = !event.isPoisonous && random.chance(hasServerFaults ? 10 : 3);
  event.url = "https://host" + std::to_string(event.host) +
              ".example/path?s=" + std::to_string(600000 + source) + "&p=key";
  event.hasWaitingMarker = hasWaitingMarker;
  event.body = R"({"context":{"event_id":")" + event.id + R"("},"data":")" +
               std::string(bodySize(), 'x') + R"(","user":)" +
               (hasWaitingMarker ? R"("waiting_for_consent"})" : R"({"id":1}})");
  return event;
}

void Life::execute() {
  VirtualProcess* const process = anyProcess();
  if (process == nullptr || !process->isAlive() || events_ >= kMaxEvents) return;
  if (process->record().members.empty()) return;
  const std::size_t member = world_.random.below(process->record().members.size());
  const ProcessRecord::Member& serverSide = process->record().members[member];
  // A ServerSide that is disabled executes nothing, except what had begun before.
  const bool isDisabled = serverSide.start != JXStartState::AlwaysEnabled &&
                          (process->record().isStopped ||
                           (serverSide.start == JXStartState::Disabled && !serverSide.wasEnabled));
  if (isDisabled && !world_.random.chance(20)) return;
  executeIn(*process, member);
}

void Life::executeIn(VirtualProcess& process, std::size_t member) {
  const ProcessRecord::Member& serverSide = process.record().members[member];
  const bool waits = serverSide.start == JXStartState::WaitingForConsent && !serverSide.wasEnabled;
  process.execute(newEvent(serverSide.source, waits), member);
}

void Life::executeMany() {
  for (std::int64_t count = world_.random.between(2, 12); count > 0; --count)
    execute();
}

void Life::wait() {
  const std::int64_t scale[] = {100, kSecondMs, 3 * kSecondMs, 60 * kSecondMs};
  advance(world_.random.between(1, scale[world_.random.below(4)]));
}

void Life::waitLong() { advance(world_.random.between(60 * kSecondMs, 3 * kHourMs)); }

void Life::waitDays() { advance(world_.random.between(12 * kHourMs, 4 * kDayMs)); }

void Life::setValue() {
  if (VirtualProcess* const process = anyProcess()) {
    process->setValue(hasLargeValues_ ? 30'000 : world_.random.below(60));
  }
}

void Life::flush() {
  if (VirtualProcess* const process = anyProcess()) process->flush();
}

void Life::exit() {
  VirtualProcess* const process = anyProcess();
  if (process == nullptr) return;
  process->exit();
  if (process->isAlive()) world_.disk.kill(process->number());
}

void Life::kill() {
  if (VirtualProcess* const process = anyProcess()) world_.disk.kill(process->number());
}

void Life::killSoon() {
  if (VirtualProcess* const process = anyProcess()) {
    world_.disk.killAt(process->number(), world_.random.between(1, 40), false);
  }
}

void Life::cutPower() {
  world_.say("power cut");
  world_.disk.cutPower();
  world_.clock->restart();
  bury();
  world_.ledger.powerCut();
}

void Life::cutPowerSoon() {
  if (VirtualProcess* const process = anyProcess()) {
    world_.disk.killAt(process->number(), world_.random.between(1, 40), true);
  }
}

void Life::breakDisk() {
  using Fault = VirtualDisk::Fault;
  constexpr Fault kFaults[] = {Fault::Full, Fault::ReadOnly, Fault::SyncFails, Fault::Flaky};
  const std::uint64_t drawn = world_.random.below(4);
  world_.say("the disk breaks (%d)", static_cast<int>(drawn));
  world_.disk.setFault(kFaults[drawn]);
  if (kFaults[drawn] == Fault::Flaky) world_.ledger.mayLoseFiles = true;
}

void Life::healDisk() {
  if (world_.disk.fault() == VirtualDisk::Fault::None) return;
  world_.say("the disk works again");
  world_.ledger.disturbed(world_.clock->steadyMs());
  world_.disk.setFault(VirtualDisk::Fault::None);
}

void Life::stop() {
  if (VirtualProcess* const process = anyProcess()) process->stop();
}

void Life::enable() {
  if (VirtualProcess* const process = anyProcess()) process->enable();
}

void Life::changeNetwork() {
  Network& network = world_.network;
  switch (world_.random.below(3)) {
    case 0:
      network.isOffline = !network.isOffline;
      break;
    case 1:
      network.isHostDead[world_.random.below(2)] = true;
      break;
    default:
      network.failsOnEverything = true;
      network.retryAfterSeconds =
          world_.random.chance(50) ? static_cast<int>(world_.random.between(1, 3'600)) : 0;
  }
  world_.say("the network changes: offline %d, dead %d %d, fails %d (Retry-After %d s)",
             network.isOffline, network.isHostDead[0], network.isHostDead[1],
             network.failsOnEverything, network.retryAfterSeconds);
}

void Life::healNetwork() {
  const int lostResponses = world_.network.lostResponses;
  world_.network = {};
  world_.network.lostResponses = lostResponses;
  world_.say("the network works");
}

void Life::jumpClock() {
  const std::int64_t days = world_.random.between(-60, 60);
  world_.say("the time of day jumps by %d days", static_cast<int>(days));
  if (world_.random.chance(20)) {
    world_.clock->forget();
  } else {
    world_.clock->jump(days * kDayMs);
  }
}

}  // namespace jx::simulation
