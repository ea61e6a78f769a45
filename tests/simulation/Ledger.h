// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/JXOutboxBounds.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXNetworkManager.h"

namespace jx::simulation {

/// An event that the application executes, and what has happened to it.
struct Event {
  std::string id;  ///< occurs nowhere else
  std::string url;
  std::string body;
  int source = 0;
  int host = 0;
  bool isPoisonous = false;  ///< the server fails on it until it is repaired
  bool isRejected = false;   ///< the server rejects it
  bool isValue = false;      ///< not an event but a persisted value
  JXStartState start = JXStartState::Enabled;
  bool awaitsDecision = false;    ///< its ServerSide was not enabled
  bool hasWaitingMarker = false;  ///< was executed while waiting for consent
  std::uint64_t order = 0;        ///< the operation that executed it
  std::int64_t executedMs = 0;

  int owner = 0;            ///< the process that has it in its queue; 0: none
  bool isHeld = false;      ///< its owner has certainly read it
  int executedBy = 0;       ///< the process that executed it
  bool isAccepted = false;  ///< `add` returned an ID
  bool isOnDisk = false;    ///< a killed process does not lose it
  bool isDurable = false;   ///< a power cut does not lose it
  std::int64_t changedMs = 0;
  std::uint64_t heldBy = 0;  ///< the last stop that holds it in later processes

  int received = 0;       ///< by the server, with a 2xx response
  int droppedBy = 0;      ///< the process that reported a drop by the limits
  int answeredBy = 0;     ///< the process that received such a response
  bool hasEnded = false;  ///< the library knows its end: delivered, rejected or dropped
  bool endIsDurable = false;
  std::int64_t endedMs = 0;
  bool isGivenUp = false;  ///< the server has failed on it for three days
  bool isReportedDelivered = false;
  bool isReportedDropped = false;
  bool isReportedRejected = false;

  bool mayBeLost = false;
  bool couldBeLost = false;  ///< before the last removal began
  bool wasOnDisk = false;
  bool wasDurable = false;
  bool mayRepeat = false;
  std::uint64_t forbiddenFrom = 0;  ///< the operation from which on it must not be sent; 0: none
  bool isErased = false;            ///< must not be on the disk
  bool mayMissErase = false;        ///< its process may not have noticed an erase before it
  int attempts = 0;
  int serverErrors = 0;            ///< while the host did not fail on everything
  std::int64_t firstErrorMs = -1;  ///< of its first server error
};

/// What a process has decided, and what it knows.
struct ProcessRecord {
  struct Member {
    int source = 0;
    JXStartState start = JXStartState::Enabled;
    bool wasEnabled = false;
  };
  std::vector<Member> members;
  bool isAlive = true;
  bool isStopped = false;
  std::map<int, std::uint64_t> stops;  ///< by source: the stop that holds what is older
  std::int64_t startedMs = 0;
  std::int64_t healthyMs = 0;   ///< since when the disk has worked for it, with repairs finished
  std::uint64_t operation = 0;  ///< the current operation
  long failuresBefore = 0;      ///< failed calls of the disk when it began
  int flushes = 0;
  std::map<int, std::int64_t> notBeforeMs;  ///< by host: the end of a Retry-After
  /// The attempts on one host since its last final response.
  struct Outage {
    std::int64_t sinceMs = -1;
    int attempts = 0;
    int flushes = 0;
    std::set<const Event*> failed;  ///< with a server error
  };
  std::map<int, Outage> outages;
  std::uint64_t reported = 0;  ///< dropped events
};

/// Knows which events exist, and what the library may and may not do with them. It is written from
/// the documented guarantees and uses no code of the library.
class Ledger {
 public:
  /// Longest time until the storage is repaired after a fault, and synced.
  static constexpr std::int64_t kRepairMs = 62'000;
  static constexpr std::int64_t kSyncMs = 1'000;

  std::deque<Event>& events() { return events_; }
  Event* find(std::string_view body);
  ProcessRecord& process(int number) { return processes_[number]; }
  std::map<int, ProcessRecord>& processes() { return processes_; }
  /// Returns the number of the operation that begins.
  std::uint64_t nextOperation() { return ++operations_; }

  /// A process starts: it adopts what no living process has, and knows the recorded stops.
  void started(int process, std::int64_t nowMs, bool isHealthy);
  /// The process may have adopted what those had that died since its start began.
  void adopted(int process, std::int64_t nowMs, bool isHealthy);
  void accepted(Event& event, int process, bool isOnDisk, std::int64_t nowMs);
  /// A process has worked through everything that was due.
  void worked(int process, std::int64_t nowMs, bool isHealthy);
  /// The disk fails, or somebody moves its files.
  void disturbed(std::int64_t nowMs);
  /// The folder is lost with what no living process has in memory or open.
  void folderLost(std::int64_t nowMs);
  /// A process ends; it has counted, and not reported, so many dropped events.
  void died(int process, std::uint64_t unreported);
  void powerCut();

  void stopped(int process, bool isRecorded);
  void enabled(int process);
  /// An erase whose mark is written did not end; the next start finishes it.
  void eraseIsLeft() { erasingFrom_ = removingFrom_; }
  void erasedAtStart(bool isComplete);
  /// Begins a purge or an erase of everything that was accepted before, or of the queue of one
  /// process.
  void removing(int process = 0);
  /// It has ended. From now on nothing of it may be sent or, after an erase, be on the disk.
  void removed(bool isErase);
  /// It was not complete: an erase may have deleted any file.
  void removalFailed();
  void removedMeanwhile();
  /// It had not begun.
  void removalHadNoEffect();
  /// The marks and the acknowledgements of purges may be lost.
  void purgesAreUncertain();

  /// Records that the library knows the outcome of an event.
  void ended(Event& event, bool isCertain, std::int64_t nowMs);

  /// Returns why the process must not send the event; null if it may. `failures` is the number of
  /// failed calls of the disk.
  const char* refusal(const Event& event, const ProcessRecord& process, long failures) const;
  /// Returns why an end that was reported is wrong; null if it is right. `mayExpire` is true when
  /// the event has reached the maximum age.
  const char* wrongReport(Event& event, const JXDelivery& delivery, bool mayExpire);

  /// The number of accepted events that may be missing because nobody has heard of their drop.
  std::uint64_t unreported() const { return unreported_; }
  /// The causes of drops that are possible in this life.
  bool hadFault = false;
  bool hadDamage = false;
  bool mayLoseFiles = false;  ///< files were deleted, or calls failed at random
  bool mayRemove = false;     ///< a process died during an erase; another one finishes it

 private:
  const char* heldBySource(const Event& event, const ProcessRecord& process) const;

  std::deque<Event> events_;
  std::map<int, ProcessRecord> processes_;
  std::map<int, std::uint64_t> stops_;  ///< recorded on the disk, by source
  std::uint64_t operations_ = 0;
  std::uint64_t removingFrom_ = 0;
  std::uint64_t erasingFrom_ = 0;  ///< the operation that began an erase that was left
  std::uint64_t removedAt_ = 0;    ///< the operation before which the last removal ended
  int removingOf_ = 0;
  std::uint64_t unreported_ = 0;
};

}  // namespace jx::simulation
