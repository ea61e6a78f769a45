// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/VirtualProcess.h"

#include <algorithm>
#include <utility>

namespace jx::simulation {
namespace {

// More iterations without a wait in between are an endless loop.
constexpr int kMaxIterations = 500;

std::uint64_t droppedBy(const JXOutboxCounters& counters) {
  return counters.droppedTooMany + counters.droppedTooLarge + counters.droppedTooOld +
         counters.droppedNoStorage + counters.droppedUnreadable + counters.purged;
}

}  // namespace

// The time in which the disk serves this process.
class VirtualProcess::Turn {
 public:
  explicit Turn(VirtualProcess& process)
      : process_(process), before_(process.world_.disk.enter(process.number_)) {
    outer_ = std::exchange(process.record().operation, process.world_.ledger.nextOperation());
    outerFailures_ = std::exchange(process.record().failuresBefore, process.world_.disk.failures());
  }
  ~Turn() {
    process_.record().operation = outer_;
    process_.record().failuresBefore = outerFailures_;
    process_.world_.disk.enter(before_);
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  VirtualProcess& process_;
  const int before_;
  std::uint64_t outer_ = 0;
  long outerFailures_ = 0;
};

VirtualProcess::VirtualProcess(World& world)
    : world_(world),
      number_(world.disk.addProcess()),
      transport_(std::make_shared<VirtualTransport>(world, number_)) {}

VirtualProcess::~VirtualProcess() {
  const Turn turn(*this);
  loop_.reset();
  outbox_.reset();
  defaults_.reset();
}

JXTransferSetup VirtualProcess::setup() {
  JXTransferSetup setup;
  setup.outbox = outbox_;
  setup.clock = world_.clock;
  setup.onDelivery = [this](const JXDelivery& delivery) { report(delivery); };
  setup.stopMarks = marks_;
  setup.maintain = [this] { defaults_->maintain(); };
  setup.transport = transport_;
  setup.steadyNow = [this] { return world_.clock->steady(); };
  setup.draw = [this] { return world_.random.unit(); };
  return setup;
}

void VirtualProcess::start() {
  const Turn turn(*this);
  world_.ledger.started(number_, world_.clock->steadyMs(),
                        world_.disk.fault() == VirtualDisk::Fault::None);
  erasures_ = std::make_shared<JXErasures>(world_.folder);
  defaults_ = std::make_unique<JXDefaultsFile>(world_.folder + "/defaults", erasures_);
  outbox_ = std::make_shared<JXOutbox>(world_.folder + "/outbox", world_.bounds, world_.clock,
                                       erasures_, true);
  marks_ = std::make_shared<JXStopMarks>(world_.folder + "/outbox");
  bool areComplete = true;
  std::vector<JXStopMark> marks = marks_->read(areComplete);
  gate_.setMarks(std::move(marks), areComplete);
  loop_ = std::make_unique<JXTransferLoop>(setup());
  commands_.filter = gate_.filter();
  ++commands_.storageChanges;
  checkValue();
}

std::string VirtualProcess::urlOf(int source) const {
  return "https://host0.example/path?s=" + std::to_string(600000 + source) + "&p=key";
}

void VirtualProcess::addMember(int source, JXStartState start) {
  const Turn turn(*this);
  const std::size_t index = record().members.size();
  record().members.push_back({source, start, false});
  const std::uint32_t hash = JXSendFilter::sourceOf(urlOf(source));
  gate_.started(&members_[index], hash, start, outbox_->mostStops(hash));
  applyConsent();
}

void VirtualProcess::applyConsent() {
  commands_.filter = gate_.filter();
  for (const JXStopMark& mark : gate_.takeChangedMarks())
    marks_->set(mark);
  runThreads();  // of the marks
}

void VirtualProcess::execute(Event& event, std::size_t member) {
  const Turn turn(*this);
  const ProcessRecord::Member& serverSide = record().members.at(member);
  event.order = record().operation;
  event.executedMs = world_.clock->steadyMs();
  event.executedBy = number_;
  event.start = serverSide.start;
  event.awaitsDecision = serverSide.start == JXStartState::Disabled && !serverSide.wasEnabled;
  const long failures = world_.disk.failures();
  const JXOutboxCounters before = outbox_->counters();
  const JXConsentGate::Origin origin = gate_.originOf(&members_[member]);
  erasures_->check();  // as the session does before it composes an event
  const JXErasureScope scope(*erasures_);
  const auto id = outbox_->add(event.url, event.body, origin.stored, origin.awaitsDecision);
  const JXOutboxCounters after = outbox_->counters();
  world_.say("process %d executes %s (%zu bytes, source %d): %s", number_, event.id.c_str(),
             event.body.size(), event.source,
             !isAlive() ? "dies"
             : id       ? "queued"
                        : "not queued");
  if (!id) {
    ++commands_.rejectedByQueue;
    if (isAlive() && droppedBy(after) == droppedBy(before)) {
      world_.violated(event.id + " was neither queued nor counted as dropped");
    }
  } else {
    added_ = true;
    world_.ledger.accepted(event, number_, isAlive() && after.inMemory == 0,
                           world_.clock->steadyMs());
  }
  if (!isAlive()) event.mayBeLost = true;
  // A failed write may have written it, and it is written again.
  if (failures != world_.disk.failures()) event.mayRepeat = event.mayMissErase = true;
  if (id && after.purged == before.purged) {
    checkLimits(before, event.url.size() + event.body.size());
  }
}

void VirtualProcess::stop() {
  const Turn turn(*this);
  const long failures = world_.disk.failures();
  world_.say("process %d is stopped", number_);
  gate_.stop(true);
  transport_->suspend();
  ++commands_.suspensions;
  applyConsent();
  world_.ledger.stopped(number_, isAlive() && failures == world_.disk.failures());
}

void VirtualProcess::enable() {
  const Turn turn(*this);
  world_.say("process %d is enabled", number_);
  world_.ledger.enabled(number_);
  gate_.enable();
  applyConsent();
}

void VirtualProcess::flush() {
  ++commands_.flushes;
  ++record().flushes;
  ++world_.flushes;
}

void VirtualProcess::abortRequests() {
  transport_->suspend();
  ++commands_.suspensions;
  ++commands_.purges;
}

void VirtualProcess::purge() {
  const Turn turn(*this);
  world_.say("process %d purges its queue", number_);
  const long failures = world_.disk.failures();
  world_.ledger.removing(number_);
  outbox_->purge();
  abortRequests();
  if (!isAlive() || failures != world_.disk.failures()) {
    world_.ledger.removedMeanwhile();
  } else {
    world_.ledger.removed(false);
  }
}

// Returns whether everything was erased.
bool VirtualProcess::erase() {
  const Turn turn(*this);
  world_.say("process %d erases", number_);
  world_.ledger.removing();
  const long failures = world_.disk.failures();
  const std::string mark = world_.eraseMark();
  std::vector<std::string> left = erasures_->begin();
  const bool isCut = !isAlive();
  defaults_->applyErasures();
  outbox_->applyErasures();
  abortRequests();
  erasures_->complete(left);
  if (!left.empty() || !isAlive()) {
    world_.ledger.removalFailed();
    // Without its mark, the erase must not have deleted anything.
    const bool hasBegun = !isCut || world_.eraseMark() != mark;
    if (!hasBegun && failures == world_.disk.failures()) {
      world_.ledger.removalHadNoEffect();
    } else {
      world_.ledger.eraseIsLeft();
    }
    return false;
  }
  world_.ledger.removed(true);
  return true;
}

// The value is a number that was never used before, so that the newest one is known.
void VirtualProcess::setValue(std::size_t size) {
  const Turn turn(*this);
  Event& value = world_.ledger.events().emplace_back();
  value.isValue = true;
  value.order = record().operation;
  value.id = std::string("v").append(std::to_string(value.order)).append(";");
  value.executedBy = number_;
  world_.say("process %d sets the value %s", number_, value.id.c_str());
  const JXString written(value.id + std::string(size, '.'));
  defaults_->setObject_forKey(written, JXString("JXValue"));
  ++commands_.storageChanges;
  world_.ledger.accepted(value, number_, isAlive() && defaults_->isAvailable(),
                         world_.clock->steadyMs());
  // A value that is set before this process notices an erase is erased, too.
  const bool isErased = defaults_->objectForKey("JXValue") != written;
  if (!isAlive() || isErased || world_.eraseIsPending) value.mayBeLost = true;
}

void VirtualProcess::work() {
  for (int i = 0; i < kMaxIterations; ++i) {
    if (!isAlive() || !workOnce()) return;
  }
  world_.violated("the transfer thread works without end");
}

// Returns whether there is more to do now. The same steps as JXTransfer::runOnce.
bool VirtualProcess::workOnce() {
  const Turn turn(*this);
  const long failures = world_.disk.failures();
  loop_->apply(commands_, std::exchange(added_, false));
  if (commands_.suspensions != endedSuspensions_) {
    transport_->resume();
    endedSuspensions_ = commands_.suspensions;
  }
  const JXTransferWait wait = loop_->act();
  std::vector<JXHttpResult> results = loop_->poll(wait, false);
  const std::vector<JXHttpResult> noted = results;
  loop_->complete(std::move(results));
  noteEnds(noted, failures);
  wakeAt_ = wait.wakeAt;
  if (!noted.empty()) wakeAt_ = world_.clock->steady();
  const bool isHealthy =
      failures == world_.disk.failures() && world_.disk.fault() == VirtualDisk::Fault::None;
  if (isAlive()) {
    world_.ledger.worked(number_, world_.clock->steadyMs(), isHealthy);
    checkResources();
  }
  return wakeAt_ && *wakeAt_ <= world_.clock->steady();
}

std::uint64_t VirtualProcess::unreported() {
  return outbox_ ? droppedBy(outbox_->counters()) - record().reported : 0;
}

void VirtualProcess::exit() {
  const Turn turn(*this);
  world_.say("process %d exits", number_);
  loop_->end();
}

std::optional<std::int64_t> VirtualProcess::nextMs() const {
  if (added_) return world_.clock->steadyMs();
  std::optional<std::int64_t> next = transport_->nextMs();
  if (wakeAt_) {
    const auto wake =
        std::chrono::duration_cast<std::chrono::milliseconds>(wakeAt_->time_since_epoch()).count();
    next = std::min(next.value_or(INT64_MAX), std::int64_t{wake});
  }
  return next;
}

}  // namespace jx::simulation
